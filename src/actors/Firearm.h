#pragma once

#include "actors/Weapon.h"

namespace Grevan {

// A weapon that fires bullets: each shot kicks the sight when the weapon is in the main player's
// hand, and shots and reloads sound. Gun and Pistol differ only in their WeaponKind.
class Firearm : public Weapon {
  public:
    bool fire(int x, int y) override;
    // A reload already under way goes on untouched and is not heard again.
    void reload() override;

  protected:
    Firearm(Player* owner, const WeaponKind& kind) : Weapon(owner, kind) {}
};

}  // namespace Grevan

#pragma once

#include "actors/Weapon.h"

namespace Grevan {

// Hand grenades, one in hand at a time, thrown without recoil or sound (WeaponKind::kGrenade). A
// held fire button keeps restarting the reload, so the next grenade is ready only a whole reload
// time after the button is let go: one grenade per press.
class Grenade : public Weapon {
  public:
    explicit Grenade(Player* owner);

    bool fire(int x, int y) override;
};

}  // namespace Grevan

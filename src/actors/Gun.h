#pragma once

#include "actors/Firearm.h"
#include "actors/WeaponKind.h"

namespace Grevan {

// Fires bullets fast from a large magazine; its figures are the row WeaponKind::kGun.
class Gun : public Firearm {
  public:
    explicit Gun(Player* owner) : Firearm(owner, WeaponKind::kGun) {}
};

}  // namespace Grevan

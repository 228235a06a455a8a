#pragma once

#include "actors/Firearm.h"
#include "actors/WeaponKind.h"

namespace Grevan {

// Fires bullets slower than the gun from a smaller magazine, with less kick; its figures are the
// row WeaponKind::kPistol.
class Pistol : public Firearm {
  public:
    explicit Pistol(Player* owner) : Firearm(owner, WeaponKind::kPistol) {}
};

}  // namespace Grevan

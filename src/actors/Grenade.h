#pragma once

#include "actors/Weapon.h"

namespace Grevan {

// Hand grenades, one in hand at a time, thrown without recoil or sound. A held fire button
// keeps restarting the 50-frame reload, so the next grenade is ready only 50 frames after the
// button is let go: one grenade per press.
class Grenade : public Weapon {
  public:
    explicit Grenade(Player* owner);

    bool fire(int x, int y) override;
};

}  // namespace Grevan

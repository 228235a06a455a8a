#pragma once

#include "actors/Weapon.h"

namespace Grevan {

// Fires bullets: 20 rounds a magazine, a shot every 15 frames, 60 frames to reload; each
// shot of the main player's kicks the sight by 20.
class Pistol : public Weapon {
  public:
    explicit Pistol(Player* owner);

    bool fire(int x, int y) override;
    void reload() override;
};

}  // namespace Grevan

#pragma once

#include "actors/Weapon.h"

namespace Grevan {

// Fires bullets: 30 rounds a magazine, a shot every 7 frames, 100 frames to reload; each
// shot of the main player's kicks the sight by 30.
class Gun : public Weapon {
  public:
    explicit Gun(Player* owner);

    bool fire(int x, int y) override;
    void reload() override;
};

}  // namespace Grevan

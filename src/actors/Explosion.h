#pragma once

#include "actors/GrowingCircle.h"

namespace Grevan {

class Player;

// The blast of a grenade: a white disc that grows by 20 pixels a frame for 10 frames and hits
// every player whose centre lies inside it, again on every frame. Nobody is exempt, the
// thrower included, and dead players bleed again.
class Explosion : public GrowingCircle {
  public:
    static const int kGrowth = 20;  // pixels of radius per frame

    Explosion(Player* thrower, int x, int y) : GrowingCircle(x, y, kGrowth), owner(thrower) {}

    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;

  private:
    Player* owner;  // not owned; credited with the kills
};

}  // namespace Grevan

#pragma once

#include "world/Object.h"

namespace Grevan {

class Player;

// The blast of a grenade: a white disc that grows by 20 pixels a frame for 10 frames and hits
// every player whose centre lies inside it, again on every frame. Nobody is exempt, the
// thrower included, and dead players bleed again.
class Explosion : public Object {
  public:
    static const int kLife = 10;    // frames
    static const int kGrowth = 20;  // pixels of radius per frame

    Explosion(Player* owner, int x, int y);

    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;

    int getRadius() const { return radius; }

  private:
    int life = kLife;
    int radius = 1;  // pixels
    Player* owner;   // not owned; credited with the kills
};

}  // namespace Grevan

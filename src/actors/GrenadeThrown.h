#pragma once

#include <ctime>

#include "world/RealBody.h"

namespace Grevan {

class Player;

// A thrown grenade: a bouncing rigid body that explodes two wall-clock seconds after the throw
// (counted in whole seconds, so after just over one to two seconds). It passes through any
// player of its thrower's colour, and rattles on the ground at most once every 5 frames.
class GrenadeThrown : public RealBody {
  public:
    static const int kSpeed = 8;  // pixels per frame at the throw
    static const int kFuseSeconds = 2;
    static const int kSoundDelay = 5;  // frames between bounce sounds
    static const int kRadius = 5;      // pixels, as drawn

    // The last argument is accepted and ignored.
    GrenadeThrown(Player* owner, int x, int y, int tx, int ty, int ignored);

    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;
    bool collide(Object* other) override;
    void handleCollision(int side, Object* other) override;
    // Explodes on the next frame.
    virtual void bomb();

  private:
    Player* owner;  // not owned; players outlive their grenades
    int speed = kSpeed;
    int fuseSeconds = kFuseSeconds;
    time_t thrownAt;
    int soundDelay = 0;  // frames
};

}  // namespace Grevan

#pragma once

#include "world/Object.h"

namespace Grevan {

class Player;

// A shot of a gun or a pistol. Its end point is settled when it is fired, by a line test
// through the block map that ignores the shooter's own colour; it flies there at 100 pixels a
// frame and, on arrival, hits the player (other than the shooter) that occupies that point then.
class Bullet : public Object {
  public:
    static constexpr float kSpeed = 100.0f;  // pixels per frame

    Bullet(Player* owner, int x, int y, int tx, int ty);

    // The tracer of the last step.
    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;

    int getEndX() const { return endX; }
    int getEndY() const { return endY; }

  private:
    void arrive();

    int endX;
    int endY;
    float speed = kSpeed;
    Player* owner;  // not owned; players outlive their shots
};

}  // namespace Grevan

#pragma once

#include <ctime>

#include "world/RealBody.h"

namespace Grevan {

// A red droplet thrown out of a hit player: a rigid body that flies back towards where the
// hit came from (or drops straight down), falls through players and vanishes after a minute
// of wall-clock time.
class Blood : public RealBody {
  public:
    static const int kLifeSeconds = 60;

    // impulse: the unit vector from the shooter (or the blast) to the victim.
    Blood(int x, int y, const Vector& impulse);

    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;
    bool collide(Object* other) override;

    int getRadius() const { return radius; }

  private:
    int radius;  // pixels, 1 to 5
    int color;
    int spread = 5;
    int lifeSeconds = kLifeSeconds;
    time_t bornAt;
};

}  // namespace Grevan

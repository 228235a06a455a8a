#pragma once

#include "world/Object.h"

namespace Grevan {

// What a blast and a bullet's fire star have in common: a circle centred on its position that
// grows by a fixed step every frame from a radius of 1 and dies after kLife frames. The kinds
// draw it.
class GrowingCircle : public Object {
  public:
    static const int kLife = 10;  // frames

    // One frame older: the radius grows and, when the frames are up, the circle dies.
    void move() override;

    int getRadius() const { return radius; }

  protected:
    // Shown at (x, y).
    GrowingCircle(int x, int y, int growth);

    int radius = 1;  // pixels

  private:
    int life = kLife;
    int growth;  // pixels of radius per frame
};

}  // namespace Grevan

#pragma once

#include "world/Object.h"

namespace Grevan {

// The yellow ring where a bullet ends: it grows from 1 to 10 pixels over its 10 frames.
class FireStar : public Object {
  public:
    static const int kLife = 10;  // frames

    FireStar(int x, int y);

    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;

    int getRadius() const { return radius; }

  private:
    int life = kLife;
    int radius = 1;  // pixels
};

}  // namespace Grevan

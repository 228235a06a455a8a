#pragma once

#include "actors/GrowingCircle.h"

namespace Grevan {

// The yellow ring where a bullet ends: it grows from 1 to 10 pixels over its 10 frames.
class FireStar : public GrowingCircle {
  public:
    static const int kGrowth = 1;  // pixels of radius per frame

    FireStar(int x, int y) : GrowingCircle(x, y, kGrowth) {}

    void draw(BITMAP* target, int cameraX, int cameraY) override;
};

}  // namespace Grevan

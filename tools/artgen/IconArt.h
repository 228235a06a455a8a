#pragma once

#include "Painter.h"

namespace Grevan {

// The game's icon: the guide robot's head, the first face a player meets, in front of the meadow
// on a tile with rounded corners. Drawn afresh at each small size, so that a 16-pixel icon is
// still crisp; larger icons are a small one's pixels scaled up, as the game's art looks on screen.
class IconArt {
  public:
    // The sizes drawn, in pixels a side, and the one the larger sizes are scaled up from.
    static constexpr int kDrawnSizes[] = {16, 32, 48, 64};
    static constexpr int kScaledFrom = 64;

    // Draws the icon over the whole of a square painter.
    static void icon(Painter& p);

  private:
    static void meadow(Painter& p);
    static void head(Painter& p);
};

}  // namespace Grevan

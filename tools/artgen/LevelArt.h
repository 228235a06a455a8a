#pragma once

#include <vector>

#include "ArtPiece.h"

namespace Grevan {

// The pictures of the meadow's pieces: solid ground, platforms, crates (which the other levels
// use too), a wall and a rock, and the decoration around them (hills, clouds, trees, bushes,
// flowers, a fence, a sign).
class LevelArt {
  public:
    // Written under image/object/.
    static const std::vector<ArtPiece>& pieces();

    static void ground(Painter& p);
    static void platform(Painter& p);
    static void crate(Painter& p);
    static void wall(Painter& p);
    static void rock(Painter& p);
    static void hills(Painter& p);
    static void cloud(Painter& p);
    static void tree(Painter& p);
    static void bush(Painter& p);
    static void flowers(Painter& p);
    static void fence(Painter& p);
    static void sign(Painter& p);
};

}  // namespace Grevan

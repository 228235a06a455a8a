#pragma once

#include <vector>

#include "ArtPiece.h"

namespace Grevan {

// The pieces of the hill fortress at night: rocky ground, stone ledges to climb, ramparts and
// boulders for cover, and around them the towers, the curtain wall and its gate, torches, a cave
// in the hillside, the mountains and the moonlit sky.
class FortressArt {
  public:
    // Written under image/object/.
    static const std::vector<ArtPiece>& pieces();

    static void sky(Painter& p);
    static void moon(Painter& p);
    static void mountains(Painter& p);
    static void ground(Painter& p);
    static void ledge(Painter& p);
    static void rampart(Painter& p);
    static void battlement(Painter& p);
    static void tower(Painter& p);
    static void gate(Painter& p);
    static void torch(Painter& p);
    static void boulder(Painter& p);
    static void cave(Painter& p);
};

}  // namespace Grevan

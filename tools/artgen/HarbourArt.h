#pragma once

#include <vector>

#include "ArtPiece.h"

namespace Grevan {

// The pieces of the harbour village at dusk: a quay to walk on, piers to climb, barrels to take
// cover behind, and around them the houses, boats, lanterns, the sea and the evening sky.
class HarbourArt {
  public:
    // Written under image/object/.
    static const std::vector<ArtPiece>& pieces();

    static void sky(Painter& p);
    static void sun(Painter& p);
    static void farTown(Painter& p);
    static void sea(Painter& p);
    static void boat(Painter& p);
    static void quay(Painter& p);
    static void pier(Painter& p);
    static void house(Painter& p);
    static void lantern(Painter& p);
    static void barrels(Painter& p);
    static void bollard(Painter& p);
    static void seawall(Painter& p);
};

}  // namespace Grevan

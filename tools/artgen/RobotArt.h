#pragma once

#include <vector>

#include "ArtPiece.h"

namespace Grevan {

// The guide robot who explains the game: a small hovering machine with a round head, a wide
// visor with big glowing eyes and an antenna, waving at whoever it talks to.
class RobotArt {
  public:
    // Written under image/gui/.
    static const std::vector<ArtPiece>& pieces();

    static void robot(Painter& p);
};

}  // namespace Grevan

#pragma once

#include <vector>

#include "ArtPiece.h"

namespace Grevan {

// The gift boxes a level script drops for the player: a first-aid kit, a box of rounds, a crate
// of grenades and an armour plate. What each is worth is the script's business; the pictures
// only have to say it at a glance.
class PresentArt {
  public:
    // Written under image/object/.
    static const std::vector<ArtPiece>& pieces();

    static void medkit(Painter& p);
    static void ammo(Painter& p);
    static void grenades(Painter& p);
    static void armour(Painter& p);
};

}  // namespace Grevan

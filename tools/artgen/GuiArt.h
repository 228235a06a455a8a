#pragma once

#include <vector>

#include "ArtPiece.h"

namespace Grevan {

// The pictures of the status bar: the plate drawn behind everything, the health and armour bars,
// the icons of the three weapons and the cartridge of the magazine row. They are sized for the
// places the status bar puts them on the screen, which the constants in GuiArt.cpp repeat.
class GuiArt {
  public:
    // Written under image/gui/.
    static const std::vector<ArtPiece>& pieces();

    static void back(Painter& p);
    static void blood(Painter& p);
    static void defend(Painter& p);
    static void gun(Painter& p);
    static void pistol(Painter& p);
    static void grenade(Painter& p);
    static void bullet(Painter& p);
};

}  // namespace Grevan

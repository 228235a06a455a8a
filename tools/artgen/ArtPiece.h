#pragma once

#include "Painter.h"

namespace Grevan {

// One generated picture: its file name inside the folder its group is written to, its size, and
// the routine that draws it.
struct ArtPiece {
    const char* file;
    int width;
    int height;
    void (*draw)(Painter& painter);
};

}  // namespace Grevan

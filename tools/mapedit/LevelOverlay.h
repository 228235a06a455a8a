#pragma once

#include <allegro.h>

#include "ViewTransform.h"

// A layer the level view draws over the pieces and under the selection, in level coordinates
// mapped through the view: an analysis of the level (what the player can reach from the start
// point) shows itself this way without the editor knowing what it draws.
class LevelOverlay {
  public:
    virtual ~LevelOverlay() = default;
    // `target` is the level view alone: its (0, 0) is the view's top-left corner.
    virtual void draw(BITMAP* target, const ViewTransform& view) = 0;
};

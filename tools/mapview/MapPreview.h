#pragma once

#include <allegro.h>

#include <memory>

#include "core/Game.h"

struct BitmapDeleter {
    void operator()(BITMAP* bitmap) const { destroy_bitmap(bitmap); }
};
using BitmapPtr = std::unique_ptr<BITMAP, BitmapDeleter>;

// Draws the level a game has loaded the way its main loop draws a frame: the background colour,
// then every piece in layer order through the object registry. With outlines, the collision
// outlines the block map holds for the solid pieces are drawn over the pieces.
class MapPreview {
  public:
    static constexpr int kScreenWidth = 800;  // pixels: the game's screen
    static constexpr int kScreenHeight = 600;

    explicit MapPreview(Grevan::Game& game) : game(game) {}

    // The whole level, one pixel per level pixel.
    BitmapPtr renderLevel(bool outlines);
    // One screen whose camera has its top-left corner at (x, y) of the level, as the game would
    // place it there (a camera beyond the level's edge is not moved back).
    BitmapPtr renderScreen(int x, int y, bool outlines);

    // The colour outlines are drawn in, chosen to stand out against the level's palette.
    static int outlineColour() { return makecol(255, 0, 255); }

  private:
    BitmapPtr render(int x, int y, int width, int height, bool outlines);

    Grevan::Game& game;
};

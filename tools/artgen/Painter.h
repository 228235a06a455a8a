#pragma once

#include <allegro.h>

#include <string>
#include <vector>

#include "ArtRandom.h"
#include "Palette.h"

namespace Grevan {

// A round part of a shape: centre and radius in pixels.
struct Blob {
    int x;
    int y;
    int radius;
};

// Draws one picture in the game's style into a true-colour memory bitmap that starts out
// transparent. Shapes are filled with the tones of a ramp, lit from the upper left, and the
// finished picture is outlined in one pass, so every picture gets the same one-pixel edge.
class Painter {
  public:
    // Which borders of the bitmap count as open sky when outlining. A tile that continues
    // beyond a border (ground to its neighbours, to the level's bottom) leaves that one closed.
    enum Border { BORDER_TOP = 1, BORDER_BOTTOM = 2, BORDER_LEFT = 4, BORDER_RIGHT = 8, BORDER_ALL = 15 };

    // Needs Allegro started with a true-colour depth.
    Painter(int width, int height);
    ~Painter();
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    int width() const { return canvas->w; }
    int height() const { return canvas->h; }
    BITMAP* bitmap() { return canvas; }
    bool save(const std::string& path);

    static int colour(const Tone& tone);
    // A wave that repeats exactly across a tile, so neighbouring tiles meet without a seam.
    static int tileWave(int x, int tileWidth, int periods, double amplitude, double phase);
    bool isOpaque(int x, int y) const;
    void pixel(int x, int y, const Tone& tone);
    // Paints only where the picture is already opaque: texture that never leaks past a shape.
    void stain(int x, int y, const Tone& tone);
    void erase(int x, int y);
    void fill(int x1, int y1, int x2, int y2, const Tone& tone);
    void disc(int x, int y, int radius, const Tone& tone);
    void oval(int x, int y, int radiusX, int radiusY, const Tone& tone);
    void line(int x1, int y1, int x2, int y2, const Tone& tone);
    void triangle(int x1, int y1, int x2, int y2, int x3, int y3, const Tone& tone);
    // The outline of a box, one pixel wide.
    void frame(int x1, int y1, int x2, int y2, const Tone& tone);
    // Writes in Allegro's built-in 8-pixel font, each font pixel drawn as a scale x scale square.
    void text(int x, int y, const std::string& words, const Tone& tone, int scale = 1);

    // A box with a lit top and left edge and a shaded bottom and right edge.
    void bevelBox(int x1, int y1, int x2, int y2, const Ramp& ramp);
    // A soft round mass (foliage, clouds, boulders) built from overlapping blobs: each tone of
    // the ramp is laid over the whole cluster at once, shifted towards the light, so the blobs
    // read as one lit shape rather than a pile of circles.
    void cluster(const std::vector<Blob>& blobs, const Ramp& ramp);
    // Scatters single pixels of a tone over the opaque part of a box.
    void speckle(int x1, int y1, int x2, int y2, const Tone& tone, int perMille, ArtRandom& random);
    // A sky-like gradient from one tone at y1 to another at y2, over the whole width, in a few
    // flat bands whose borders are dithered: a pixel picture's way of shading smoothly.
    void blend(int y1, int y2, const Tone& from, const Tone& to);
    // Courses of stone blocks, each a touch lighter or darker, each lit like a bevelled box.
    void masonry(int x1, int y1, int x2, int y2, const Ramp& ramp, int blockWidth, int blockHeight,
                 ArtRandom& random);
    // Rounds off a box's corners by making them transparent.
    void roundCorners(int x1, int y1, int x2, int y2);
    // Turns every opaque pixel that touches a transparent one (or an open border) into ink.
    void outline(const Tone& ink, int openBorders);

  private:
    BITMAP* canvas;
};

}  // namespace Grevan

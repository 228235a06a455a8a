#include "IconArt.h"

#include <cmath>

namespace Grevan {

namespace {

// The icon is laid out on a 64-pixel grid; a length on that grid at the painter's size.
int grid(const Painter& p, int length) {
    return static_cast<int>(std::lround(length * p.width() / 64.0));
}

// Makes everything outside a quarter circle of the radius at each corner transparent.
void roundTile(Painter& p, int radius) {
    const int last = p.width() - 1;
    for (int y = 0; y < radius; ++y) {
        for (int x = 0; x < radius; ++x) {
            const int dx = radius - x;
            const int dy = radius - y;
            if (dx * dx + dy * dy > radius * radius) {
                p.erase(x, y);
                p.erase(last - x, y);
                p.erase(x, last - y);
                p.erase(last - x, last - y);
            }
        }
    }
}

}  // namespace

void IconArt::icon(Painter& p) {
    // The head is outlined on its own first, so that its edge stays inked against the meadow.
    Painter face(p.width(), p.height());
    head(face);
    face.outline(Palette::kInk, Painter::BORDER_ALL);
    meadow(p);
    draw_sprite(p.bitmap(), face.bitmap(), 0, 0);
    roundTile(p, grid(p, 12));
    p.outline(Palette::kInk, Painter::BORDER_ALL);
}

void IconArt::meadow(Painter& p) {
    using namespace Palette;
    const int s = p.width();
    const int horizon = grid(p, 46);
    p.blend(0, horizon, kSky, kCloud.base);
    p.cluster({{grid(p, 6), horizon, grid(p, 12)}, {grid(p, 56), horizon + grid(p, 2), grid(p, 14)}},
              kFarHill);
    p.fill(0, horizon + grid(p, 4), s - 1, s - 1, kGrass.base);
    p.fill(0, horizon + grid(p, 4), s - 1, horizon + grid(p, 5), kGrass.light);
    p.fill(0, s - grid(p, 6), s - 1, s - 1, kGrass.shadow);
}

void IconArt::head(Painter& p) {
    using namespace Palette;
    const int cx = grid(p, 32);
    const int cy = grid(p, 36);
    // The antenna with its bulb, then the ear discs behind the shell.
    p.line(cx + 1, cy - grid(p, 18), cx + 1, cy - grid(p, 26), kMetal.shadow);
    p.line(cx, cy - grid(p, 18), cx, cy - grid(p, 26), kMetal.light);
    p.disc(cx, cy - grid(p, 28), grid(p, 3), kTrim.base);
    for (int side : {-1, 1}) {
        p.disc(cx + side * grid(p, 22), cy + 1, grid(p, 5), kTrim.shadow);
        p.disc(cx + side * grid(p, 22), cy, grid(p, 4), side < 0 ? kTrim.base : kTrim.light);
    }
    p.cluster({{cx, cy, grid(p, 21)},
               {cx - grid(p, 6), cy + grid(p, 3), grid(p, 17)},
               {cx + grid(p, 6), cy + grid(p, 3), grid(p, 17)}},
              kShell);
    // The visor with two big glowing eyes and a small smile, as the robot wears it in the game. A
    // small icon leaves out the visor's rim and the smile, which would blur its eyes together.
    const bool small = p.width() < 32;
    if (!small) {
        p.oval(cx, cy + grid(p, 3), grid(p, 17), grid(p, 11), kInk);
    }
    p.oval(cx, cy + grid(p, 3), grid(p, 16), grid(p, 10), kPanel.base);
    p.oval(cx - 1, cy + grid(p, 1), grid(p, 13), grid(p, 6), kPanel.light);
    p.oval(cx, cy + grid(p, 4), grid(p, 15), grid(p, 7), kPanel.base);
    for (int side : {-1, 1}) {
        const int ex = cx + side * grid(p, 7);
        const int ey = cy + grid(p, 2);
        p.oval(ex, ey, grid(p, 4), grid(p, 5), kGlow.shadow);
        p.oval(ex, ey, grid(p, 3), grid(p, 4), kGlow.light);
        p.pixel(ex - grid(p, 1), ey - grid(p, 2), kGlow.highlight);
    }
    if (!small) {
        p.line(cx - grid(p, 3), cy + grid(p, 10), cx + grid(p, 3), cy + grid(p, 10), kGlow.light);
    }
}

}  // namespace Grevan

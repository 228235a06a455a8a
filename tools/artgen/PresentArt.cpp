#include "PresentArt.h"

namespace Grevan {

const std::vector<ArtPiece>& PresentArt::pieces() {
    static const std::vector<ArtPiece> all = {
        {"medkit.bmp", 30, 26, medkit},
        {"ammo.bmp", 30, 26, ammo},
        {"grenades.bmp", 30, 28, grenades},
        {"armour.bmp", 28, 28, armour},
    };
    return all;
}

void PresentArt::medkit(Painter& p) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    // The handle, then the case with a lid seam and a red cross.
    p.frame(10, 1, w - 11, 6, kMetal.base);
    p.frame(11, 2, w - 12, 6, kMetal.shadow);
    p.bevelBox(1, 6, w - 2, h - 1, kShell);
    p.line(2, 11, w - 3, 11, kShell.shadow);
    p.line(2, 12, w - 3, 12, kShell.light);
    const int cx = w / 2;
    const int cy = 18;
    p.fill(cx - 6, cy - 2, cx + 5, cy + 2, kBlood.base);
    p.fill(cx - 2, cy - 6, cx + 1, cy + 5, kBlood.base);
    p.line(cx - 6, cy - 2, cx - 3, cy - 2, kBlood.light);
    p.line(cx - 2, cy - 6, cx - 2, cy - 3, kBlood.light);
    p.fill(3, 13, 4, 14, kMetal.base);
    p.fill(w - 5, 13, w - 4, 14, kMetal.base);
    p.roundCorners(1, 6, w - 2, h - 1);
    p.outline(kInk, Painter::BORDER_ALL);
}

void PresentArt::ammo(Painter& p) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    // Cartridges standing close in the open box, then the box's front with a yellow band.
    const Tone copper{196, 106, 62};
    p.fill(3, 6, w - 4, 10, kInk);
    for (int x = 4; x < w - 6; x += 4) {
        p.fill(x, 4, x + 2, 10, kBrass.base);
        p.line(x, 5, x, 9, kBrass.highlight);
        p.fill(x, 2, x + 2, 3, copper);
        p.pixel(x + 1, 1, copper);
    }
    p.bevelBox(1, 9, w - 2, h - 1, kOlive);
    p.fill(2, 15, w - 3, 19, kPetalYellow);
    for (int x = 3; x < w - 3; x += 5) {
        p.line(x, 19, x + 3, 15, kInk);
    }
    p.fill(w / 2 - 2, 10, w / 2 + 1, 13, kMetal.base);
    p.pixel(w / 2 - 2, 10, kMetal.highlight);
    p.outline(kInk, Painter::BORDER_ALL);
}

void PresentArt::grenades(Painter& p) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    // Two grenades sitting in a low wooden crate.
    for (int cx : {8, 21}) {
        p.oval(cx, 11, 6, 7, kOlive.shadow);
        p.oval(cx - 1, 10, 5, 6, kOlive.base);
        p.oval(cx - 2, 8, 2, 3, kOlive.light);
        // Scored into a grid of segments, as the status bar's grenade is.
        for (int k = -3; k <= 3; k += 3) {
            p.line(cx - 5, 11 + k, cx + 5, 11 + k, kOlive.shadow);
            p.line(cx + k, 5, cx + k, 17, kOlive.shadow);
        }
        p.pixel(cx - 3, 7, kOlive.highlight);
        p.bevelBox(cx - 2, 1, cx + 1, 4, kMetal);
        p.line(cx + 2, 2, cx + 6, 9, kMetal.shadow);
    }
    p.bevelBox(1, 14, w - 2, h - 1, kWood);
    p.line(3, 20, w - 4, 20, kWood.shadow);
    p.line(3, 21, w - 4, 21, kWood.light);
    for (int x : {3, w - 5}) {
        p.fill(x, 16, x + 1, h - 3, kBark.base);
    }
    p.line(8, 17, 12, 17, kInk);
    p.line(8, 24, 20, 24, kBark.shadow);
    p.pixel(4, 16, kMetal.highlight);
    p.pixel(w - 4, 16, kMetal.highlight);
    p.outline(kInk, Painter::BORDER_ALL);
}

void PresentArt::armour(Painter& p) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    const int cx = w / 2;
    // A shield-shaped plate in the armour bar's blue with a brass boss.
    p.fill(2, 2, w - 3, 13, kArmour.base);
    p.triangle(2, 13, w - 3, 13, cx, h - 1, kArmour.base);
    p.triangle(2, 13, cx, 13, cx, h - 1, kArmour.light);
    p.fill(2, 2, cx, 13, kArmour.light);
    p.line(3, 3, w - 4, 3, kArmour.highlight);
    p.line(cx, 3, cx, h - 3, kArmour.shadow);
    p.fill(w - 5, 4, w - 3, 13, kArmour.shadow);
    // A brass chevron across the plate.
    for (int k = 0; k < 3; ++k) {
        p.line(6, 9 + k, cx, 15 + k, kBrass.light);
        p.line(cx, 15 + k, w - 7, 9 + k, kBrass.base);
    }
    p.line(6, 12, cx, 18, kBrass.shadow);
    p.line(cx, 18, w - 7, 12, kBrass.shadow);
    p.roundCorners(2, 2, w - 3, 13);
    p.outline(kInk, Painter::BORDER_ALL);
}

}  // namespace Grevan

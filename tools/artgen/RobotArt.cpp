#include "RobotArt.h"

namespace Grevan {

const std::vector<ArtPiece>& RobotArt::pieces() {
    static const std::vector<ArtPiece> all = {
        {"ib.bmp", 72, 86, robot},
    };
    return all;
}

void RobotArt::robot(Painter& p) {
    using namespace Palette;
    const int cx = 34;
    const int headY = 30;
    const int bodyY = 60;
    // The thruster's flame underneath, fading out in puffs: it hovers.
    p.oval(cx, 74, 6, 7, kTrim.base);
    p.oval(cx, 72, 4, 5, kTrim.highlight);
    p.oval(cx, 71, 2, 3, kPetalWhite);
    p.disc(cx - 1, 83, 1, kTrim.light);
    p.disc(cx + 2, 84, 1, kTrim.base);
    p.bevelBox(cx - 7, 66, cx + 7, 70, kMetal);

    // Arms: the left one hangs, the right one waves at the speech bubble.
    p.oval(cx - 18, bodyY + 2, 4, 7, kShell.shadow);
    p.oval(cx - 19, bodyY + 1, 3, 6, kShell.base);
    p.disc(cx - 19, bodyY + 10, 4, kTrim.base);
    p.pixel(cx - 20, bodyY + 8, kTrim.highlight);
    for (int k = 0; k < 4; ++k) {
        p.line(cx + 13, bodyY - 2 + k, cx + 25, bodyY - 12 + k, k < 2 ? kShell.light : kShell.shadow);
    }
    p.disc(cx + 27, bodyY - 15, 4, kTrim.base);
    p.pixel(cx + 26, bodyY - 17, kTrim.highlight);

    // The body: a round pod with a warm chest light.
    p.cluster({{cx, bodyY, 14}, {cx, bodyY + 3, 12}}, kShell);
    p.oval(cx, bodyY + 2, 6, 5, kTrim.shadow);
    p.oval(cx - 1, bodyY + 1, 5, 4, kTrim.base);
    p.disc(cx - 2, bodyY, 2, kTrim.highlight);
    p.line(cx - 12, bodyY - 8, cx + 12, bodyY - 8, kShell.shadow);

    // The antenna with its bulb.
    p.line(cx + 2, headY - 18, cx + 2, headY - 26, kMetal.shadow);
    p.line(cx + 1, headY - 18, cx + 1, headY - 26, kMetal.light);
    p.disc(cx + 2, headY - 28, 3, kTrim.base);
    p.disc(cx + 1, headY - 29, 1, kTrim.highlight);

    // The head: a wide round shell with ear discs.
    p.disc(cx - 23, headY + 1, 4, kTrim.shadow);
    p.disc(cx - 23, headY, 3, kTrim.base);
    p.disc(cx + 23, headY + 1, 4, kTrim.shadow);
    p.disc(cx + 23, headY, 3, kTrim.light);
    p.cluster({{cx, headY, 20}, {cx - 6, headY + 2, 16}, {cx + 6, headY + 2, 16}}, kShell);

    // The visor, and in it two big eyes with catchlights and a small smile.
    p.oval(cx, headY + 2, 16, 10, kInk);
    p.oval(cx, headY + 2, 15, 9, kPanel.base);
    p.oval(cx - 1, headY, 12, 6, kPanel.light);
    p.oval(cx, headY + 3, 14, 7, kPanel.base);
    for (int side : {-1, 1}) {
        const int ex = cx + side * 7;
        const int ey = headY + 1;
        p.oval(ex, ey, 4, 5, kGlow.shadow);
        p.oval(ex, ey, 3, 4, kGlow.light);
        p.oval(ex, ey + 1, 2, 2, kGlow.base);
        p.fill(ex - 2, ey - 3, ex - 1, ey - 2, kGlow.highlight);
        p.pixel(ex + 1, ey + 2, kGlow.highlight);
    }
    p.line(cx - 3, headY + 8, cx + 3, headY + 8, kGlow.light);
    p.pixel(cx - 4, headY + 7, kGlow.light);
    p.pixel(cx + 4, headY + 7, kGlow.light);
    // Rosy cheeks on the shell, under the visor's corners.
    p.fill(cx - 16, headY + 11, cx - 13, headY + 12, kPetalRed);
    p.fill(cx + 13, headY + 11, cx + 16, headY + 12, kPetalRed);
    p.outline(kInk, Painter::BORDER_ALL);
}

}  // namespace Grevan

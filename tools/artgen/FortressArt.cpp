#include "FortressArt.h"

#include <algorithm>

namespace Grevan {

namespace {

// Merlons along the top of a wall: every other block of the given width is cut away down to the
// given depth.
void crenellate(Painter& p, int x1, int x2, int y, int merlon, int depth) {
    for (int x = x1 + merlon; x <= x2; x += 2 * merlon) {
        for (int k = 0; k < merlon && x + k <= x2; ++k) {
            for (int row = y; row < y + depth; ++row) {
                p.erase(x + k, row);
            }
        }
    }
}

// A narrow window in a wall: an arrow slit, dark, or lit by a fire inside.
void slit(Painter& p, int x, int y, int height, bool lit) {
    using namespace Palette;
    p.fill(x - 1, y - 1, x + 3, y + height, kInk);
    if (lit) {
        p.fill(x, y, x + 2, y + height - 1, kLamp.base);
        p.line(x, y, x, y + height - 1, kLamp.light);
    }
}

}  // namespace

const std::vector<ArtPiece>& FortressArt::pieces() {
    static const std::vector<ArtPiece> all = {
        {"night_sky.bmp", 800, 400, sky},
        {"moon.bmp", 96, 96, moon},
        {"mountains.bmp", 800, 260, mountains},
        {"rock_ground.bmp", 400, 80, ground},
        {"ledge_long.bmp", 240, 24, ledge},
        {"ledge_short.bmp", 120, 24, ledge},
        {"rampart.bmp", 40, 100, rampart},
        {"rampart_tall.bmp", 40, 160, rampart},
        {"battlement.bmp", 400, 170, battlement},
        {"tower.bmp", 150, 400, tower},
        {"gate.bmp", 220, 250, gate},
        {"torch.bmp", 22, 56, torch},
        {"boulder.bmp", 80, 48, boulder},
        {"cave.bmp", 300, 260, cave},
    };
    return all;
}

void FortressArt::sky(Painter& p) {
    using namespace Palette;
    ArtRandom random(151);
    p.blend(0, p.height() - 1, kNightTop, kNightHorizon);
    for (int i = 0; i < 260; ++i) {
        int x = random.below(p.width());
        int y = random.below(p.height() * 3 / 4);
        p.pixel(x, y, random.chance(300) ? kMoon.highlight : kNightHill.highlight);
    }
    // A few bright stars with a twinkle.
    for (int i = 0; i < 14; ++i) {
        int x = random.between(3, p.width() - 4);
        int y = random.between(3, p.height() / 2);
        p.pixel(x, y, kMoon.highlight);
        p.pixel(x - 1, y, kMoon.shadow);
        p.pixel(x + 1, y, kMoon.shadow);
        p.pixel(x, y - 1, kMoon.shadow);
        p.pixel(x, y + 1, kMoon.shadow);
    }
}

void FortressArt::moon(Painter& p) {
    using namespace Palette;
    const int c = p.width() / 2;
    p.disc(c, c, 46, Tone{44, 56, 104});
    p.disc(c, c, 40, Tone{62, 76, 124});
    p.cluster({{c, c, 30}}, kMoon);
    const struct {
        int x, y, r;
    } craters[] = {{c + 10, c - 4, 6}, {c - 8, c + 12, 5}, {c + 4, c + 16, 3}, {c - 14, c - 8, 3}};
    for (const auto& k : craters) {
        p.disc(k.x, k.y, k.r, kMoon.shadow);
        p.disc(k.x + 1, k.y + 1, k.r - 1, kMoon.base);
    }
}

// Two ranges of mountains, the far one with a castle on its highest peak.
void FortressArt::mountains(Painter& p) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    auto farTop = [&](int x) {
        return h - 170 + Painter::tileWave(x, w, 2, 50.0, 1.9) + Painter::tileWave(x, w, 7, 12.0, 0.4);
    };
    auto nearTop = [&](int x) {
        return h - 80 + Painter::tileWave(x, w, 3, 30.0, 0.3) + Painter::tileWave(x, w, 9, 6.0, 1.1);
    };
    for (int x = 0; x < w; ++x) {
        p.fill(x, farTop(x), x, h - 1, kNightHill.base);
        p.fill(x, farTop(x), x, farTop(x) + 2, kNightHill.light);
    }
    // Snow on the far peaks, lit by the moon from the left.
    for (int x = 0; x < w; ++x) {
        int top = farTop(x);
        if (top < h - 200) {
            int depth = (h - 200 - top) / 2;
            p.fill(x, top, x, top + depth, farTop(x + 1) > top ? kNightHill.highlight : kNightHill.light);
        }
    }
    // The castle: a keep and two towers rising out of the range's crest.
    const int cx = 200;
    const int base = farTop(cx) + 6;
    p.fill(cx - 30, base - 30, cx + 30, h - 1, kNightHill.base);
    p.fill(cx - 40, base - 52, cx - 26, h - 1, kNightHill.base);
    p.fill(cx + 26, base - 46, cx + 40, h - 1, kNightHill.base);
    p.line(cx - 40, base - 52, cx - 40, base, kNightHill.light);
    p.line(cx - 30, base - 30, cx - 26, base - 30, kNightHill.light);
    p.triangle(cx - 43, base - 52, cx - 33, base - 66, cx - 23, base - 52, kNightHill.light);
    p.triangle(cx + 23, base - 46, cx + 33, base - 60, cx + 43, base - 46, kNightHill.light);
    p.fill(cx - 35, base - 42, cx - 33, base - 39, kLamp.base);
    p.fill(cx + 6, base - 20, cx + 8, base - 17, kLamp.base);
    crenellate(p, cx - 30, cx + 26, base - 30, 5, 4);
    for (int x = 0; x < w; ++x) {
        p.fill(x, nearTop(x), x, h - 1, kNightHill.shadow);
        p.pixel(x, nearTop(x), kNightHill.base);
    }
    p.outline(kNightHill.shadow, Painter::BORDER_TOP);
}

// Hard ground: a crust of flat stones over dark earth with rubble in it.
void FortressArt::ground(Painter& p) {
    using namespace Palette;
    ArtRandom random(157);
    const int w = p.width();
    const int h = p.height();
    p.fill(0, 0, w - 1, h - 1, kNightEarth.base);
    p.speckle(0, 12, w - 1, h - 1, kNightEarth.shadow, 60, random);
    p.speckle(0, 12, w - 1, h - 1, kNightEarth.light, 25, random);
    for (int i = 0; i < 22; ++i) {
        int x = random.between(8, w - 10);
        int y = random.between(22, h - 6);
        int r = random.between(2, 5);
        p.oval(x, y, r + 3, r + 1, kInk);
        p.oval(x, y, r + 2, r, kNightStone.shadow);
        p.oval(x - 1, y - 1, r + 1, r - 1, kNightStone.base);
    }
    // The crust: slabs of uneven length, lit along the top.
    for (int left = 0; left < w;) {
        int length = random.between(22, 46);
        int right = std::min(left + length - 1, w - 1);
        int depth = random.between(9, 13);
        p.bevelBox(left, 0, right, depth, kNightStone);
        p.line(left, 0, right, 0, kNightStone.highlight);
        left = right + 1;
    }
    p.speckle(0, 2, w - 1, 10, kNightStone.shadow, 50, random);
    for (int i = 0; i < 10; ++i) {
        int x = random.between(4, w - 12);
        p.fill(x, 0, x + random.between(3, 8), 1, kGrass.shadow);
    }
    p.outline(kInk, Painter::BORDER_TOP);
}

// A stone ledge to climb on: one course of blocks with a darker underside.
void FortressArt::ledge(Painter& p) {
    using namespace Palette;
    ArtRandom random(static_cast<uint32_t>(163 + p.width()));
    const int w = p.width();
    p.masonry(0, 0, w - 1, 15, kNightStone, 40, 17, random);
    p.line(0, 0, w - 1, 0, kNightStone.highlight);
    p.bevelBox(8, 16, w - 9, p.height() - 1, kFarStone);
    for (int x = 16; x < w - 16; x += 30) {
        p.triangle(x, 16, x + 10, 16, x + 5, p.height() - 1, kNightStone.shadow);
    }
    for (int i = 0; i < w / 40; ++i) {
        int x = random.between(2, w - 14);
        p.fill(x, 0, x + random.between(4, 10), 1, kGrass.shadow);
    }
    p.roundCorners(0, 0, w - 1, 15);
    p.outline(kInk, Painter::BORDER_ALL);
}

// A stretch of rampart: a stone wall to stand behind, capped with a coping.
void FortressArt::rampart(Painter& p) {
    using namespace Palette;
    ArtRandom random(static_cast<uint32_t>(167 + p.height()));
    const int w = p.width();
    const int h = p.height();
    p.masonry(0, 0, w - 1, h - 1, kNightStone, 20, 16, random);
    p.bevelBox(0, 0, w - 1, 7, kNightStone);
    p.line(0, 0, w - 1, 0, kNightStone.highlight);
    p.speckle(0, 8, w - 1, h - 1, kNightStone.shadow, 40, random);
    slit(p, w / 2 - 1, h / 2 - 8, 16, false);
    p.outline(kInk, Painter::BORDER_ALL);
}

// The curtain wall behind the fight, in the far stone, crenellated, with arrow slits.
void FortressArt::battlement(Painter& p) {
    using namespace Palette;
    ArtRandom random(173);
    const int w = p.width();
    const int h = p.height();
    p.masonry(0, 0, w - 1, h - 1, kFarStone, 40, 18, random);
    p.fill(0, 20, w - 1, 25, kFarStone.light);
    p.line(0, 26, w - 1, 26, kFarStone.shadow);
    crenellate(p, 0, w - 1, 0, 20, 18);
    for (int x = 40; x < w; x += 100) {
        slit(p, x, 60, 22, false);
    }
    slit(p, 290, 60, 22, true);
    // Tiles continue into each other, so only the top is an edge.
    p.outline(kInk, Painter::BORDER_TOP);
}

// A round tower, shaded as a drum, with a jutting crown, a lit window and a banner.
void FortressArt::tower(Painter& p) {
    using namespace Palette;
    ArtRandom random(179);
    const int w = p.width();
    const int h = p.height();
    const int crown = 44;
    p.masonry(12, crown, w - 13, h - 1, kFarStone, 26, 18, random);
    p.fill(12, crown, 20, h - 1, kFarStone.light);
    p.fill(w - 24, crown, w - 13, h - 1, kFarStone.shadow);
    p.masonry(0, 0, w - 1, crown, kFarStone, 26, 15, random);
    p.fill(0, crown - 4, w - 1, crown, kFarStone.shadow);
    crenellate(p, 0, w - 1, 0, 18, 14);
    slit(p, w / 2 - 1, 110, 26, true);
    slit(p, w / 2 - 1, 230, 22, false);
    // The banner hanging from the crown.
    const Tone banner{150, 40, 52};
    p.fill(30, crown + 2, 52, crown + 70, banner);
    p.triangle(30, crown + 70, 52, crown + 70, 41, crown + 80, banner);
    p.line(30, crown + 2, 30, crown + 70, kRoof.light);
    p.disc(41, crown + 30, 6, kBrass.base);
    p.disc(40, crown + 29, 3, kBrass.light);
    p.outline(kInk, Painter::BORDER_ALL);
}

// The gatehouse: an arch with the portcullis half raised, the dark passage behind it.
void FortressArt::gate(Painter& p) {
    using namespace Palette;
    ArtRandom random(181);
    const int w = p.width();
    const int h = p.height();
    const int c = w / 2;
    p.masonry(0, 30, w - 1, h - 1, kFarStone, 30, 18, random);
    p.masonry(10, 0, w - 11, 30, kFarStone, 30, 15, random);
    crenellate(p, 10, w - 11, 0, 16, 12);
    // The arch: voussoirs around the opening, then the passage.
    p.disc(c, 130, 62, kFarStone.light);
    p.fill(c - 62, 130, c + 62, h - 1, kFarStone.light);
    p.disc(c, 130, 54, kInk);
    p.fill(c - 54, 130, c + 54, h - 1, kInk);
    const Tone passage{14, 14, 26};
    p.disc(c, 134, 50, passage);
    p.fill(c - 50, 134, c + 50, h - 1, passage);
    // The portcullis, only where the passage shows.
    auto bar = [&](int x, int y) {
        if (getpixel(p.bitmap(), x, y) == Painter::colour(passage)) {
            p.pixel(x, y, kMetal.shadow);
        }
    };
    for (int y = 84; y <= 180; ++y) {
        for (int x = c - 50; x <= c + 50; ++x) {
            if ((x - (c - 46)) % 12 < 3 || ((y - 100) % 14 < 3 && y >= 100 && y < 173)) {
                bar(x, y);
            }
        }
    }
    for (int x = c - 46; x <= c + 46; x += 12) {
        p.pixel(x + 1, 181, kMetal.light);
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

// A torch in a wall bracket, burning.
void FortressArt::torch(Painter& p) {
    using namespace Palette;
    const int c = p.width() / 2;
    p.bevelBox(c - 3, 22, c + 2, 52, kBark);
    p.bevelBox(c - 6, 24, c + 5, 28, kMetal);
    p.bevelBox(c - 2, 44, c + 1, p.height() - 1, kMetal);
    p.oval(c, 14, 8, 11, kTrim.shadow);
    p.oval(c, 15, 6, 8, kTrim.base);
    p.oval(c - 1, 16, 4, 6, kLamp.base);
    p.oval(c - 1, 18, 2, 4, kLamp.highlight);
    p.triangle(c - 4, 6, c, 0, c + 2, 8, kTrim.base);
    p.outline(kInk, Painter::BORDER_ALL);
}

void FortressArt::boulder(Painter& p) {
    using namespace Palette;
    ArtRandom random(191);
    p.cluster({{22, 34, 18}, {46, 24, 22}, {62, 34, 16}, {34, 40, 12}, {54, 42, 10}}, kNightStone);
    p.speckle(0, 0, p.width() - 1, p.height() - 1, kNightStone.shadow, 50, random);
    p.line(44, 16, 48, 28, kNightStone.shadow);
    p.line(48, 28, 45, 38, kNightStone.shadow);
    p.outline(kInk, Painter::BORDER_ALL);
}

// A hillside of dark rock with a cave mouth in it, where the level ends.
void FortressArt::cave(Painter& p) {
    using namespace Palette;
    ArtRandom random(193);
    const int w = p.width();
    const int h = p.height();
    p.cluster({{150, 150, 110},
               {60, 190, 70},
               {240, 190, 70},
               {100, 100, 70},
               {200, 96, 76},
               {30, 230, 40},
               {270, 230, 40}},
              kFarStone);
    p.speckle(0, 0, w - 1, h - 1, kFarStone.shadow, 60, random);
    p.speckle(0, 0, w - 1, h - 1, kFarStone.light, 15, random);
    for (int y = h - 1; y < h; ++y) {
        p.fill(0, y, w - 1, y, kFarStone.base);
    }
    // The mouth: darkness deepening inwards, with teeth of rock hanging from its roof.
    p.oval(150, 200, 76, 80, kInk);
    p.oval(150, 204, 70, 76, Tone{20, 18, 30});
    p.oval(150, 210, 56, 64, Tone{10, 8, 18});
    p.fill(74, 200, 226, h - 1, Tone{10, 8, 18});
    for (int x = 92; x < 212; x += 17) {
        int length = random.between(10, 24);
        int top = 200 - static_cast<int>(76.0 * 0.9) + (x > 150 ? (x - 150) / 5 : (150 - x) / 5);
        p.triangle(x - 5, top, x + 5, top, x, top + length, kFarStone.base);
        p.line(x - 4, top, x, top + length, kFarStone.light);
    }
    p.outline(kInk, Painter::BORDER_ALL & ~Painter::BORDER_BOTTOM);
}

}  // namespace Grevan

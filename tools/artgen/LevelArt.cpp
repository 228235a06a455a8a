#include "LevelArt.h"

namespace Grevan {

namespace {

// A stone set into earth or wall: an inked pebble lit from the upper left.
void pebble(Painter& p, int x, int y, int radiusX, int radiusY) {
    p.oval(x, y, radiusX + 1, radiusY + 1, Palette::kInk);
    p.oval(x, y, radiusX, radiusY, Palette::kStone.shadow);
    p.oval(x - 1, y - 1, radiusX - 1, radiusY - 1, Palette::kStone.base);
    p.pixel(x - radiusX / 2, y - radiusY / 2, Palette::kStone.highlight);
}

}  // namespace

const std::vector<ArtPiece>& LevelArt::pieces() {
    static const std::vector<ArtPiece> all = {
        {"ground.bmp", 400, 80, ground},
        {"platform_long.bmp", 240, 22, platform},
        {"platform_short.bmp", 120, 22, platform},
        {"crate.bmp", 40, 40, crate},
        {"crate_large.bmp", 60, 60, crate},
        {"wall.bmp", 40, 240, wall},
        {"rock.bmp", 72, 40, rock},
        {"hills.bmp", 800, 224, hills},
        {"cloud.bmp", 176, 64, cloud},
        {"tree.bmp", 140, 220, tree},
        {"bush.bmp", 96, 44, bush},
        {"flowers.bmp", 56, 24, flowers},
        {"fence.bmp", 120, 44, fence},
        {"sign.bmp", 48, 64, sign},
    };
    return all;
}

void LevelArt::ground(Painter& p) {
    using namespace Palette;
    ArtRandom random(11);
    const int w = p.width();
    const int h = p.height();
    p.fill(0, 0, w - 1, h - 1, kDirt.base);
    for (int x = 0; x < w; ++x) {
        for (int y = 18; y < h; ++y) {
            int band = (y + Painter::tileWave(x, w, 2, 3.0, 0.0)) % 17;
            if (band == 0) {
                p.pixel(x, y, kDirt.shadow);
            } else if (band == 1) {
                p.pixel(x, y, kDirt.light);
            }
        }
    }
    p.speckle(0, 16, w - 1, h - 1, kDirt.shadow, 30, random);
    p.speckle(0, 16, w - 1, h - 1, kDirt.light, 20, random);
    for (int i = 0; i < 18; ++i) {
        int radius = random.between(2, 5);
        pebble(p, random.between(10, w - 12), random.between(26, h - 6), radius + 2, radius);
    }
    // The turf: a wavy band with drips, lit along its top.
    for (int x = 0; x < w; ++x) {
        int depth = 10 + Painter::tileWave(x, w, 8, 2.0, 0.7) + Painter::tileWave(x, w, 3, 1.5, 2.1);
        for (int y = 0; y <= depth; ++y) {
            const Tone& tone = y <= 2 ? kGrass.light : y >= depth - 1 ? kGrass.shadow : kGrass.base;
            p.pixel(x, y, tone);
        }
    }
    // Turf hanging into the earth below the band.
    for (int i = 0; i < 16; ++i) {
        int x = random.between(6, w - 8);
        int radius = random.between(2, 3);
        int y = 10 + Painter::tileWave(x, w, 8, 2.0, 0.7) + Painter::tileWave(x, w, 3, 1.5, 2.1);
        p.disc(x, y + radius - 1, radius, kGrass.shadow);
        p.disc(x - 1, y + radius - 2, radius - 1, kGrass.base);
    }
    p.speckle(0, 2, w - 1, 6, kGrass.highlight, 120, random);
    // Notches along the top edge, so that the turf's outline is ragged; the surface itself
    // stays on the first row, where bodies come to rest.
    for (int x = 0; x < w;) {
        int run = random.between(2, 6);
        int depth = random.chance(550) ? 0 : random.between(1, 2);
        for (int k = 0; k < run && x < w; ++k, ++x) {
            int notch = (k == 0 || k == run - 1) ? depth / 2 : depth;
            for (int y = 0; y < notch; ++y) {
                p.erase(x, y);
            }
        }
    }
    p.outline(kInk, Painter::BORDER_TOP);
}

void LevelArt::platform(Painter& p) {
    using namespace Palette;
    ArtRandom random(static_cast<uint32_t>(23 + p.width()));
    const int w = p.width();
    const int deck = 13;  // last row of the deck
    p.bevelBox(6, deck + 1, w - 7, p.height() - 1, kBark);
    p.bevelBox(0, 0, w - 1, deck, kWood);
    for (int i = 0; i < w / 10; ++i) {
        int x = random.between(3, w - 24);
        int y = random.between(4, deck - 3);
        p.line(x, y, x + random.between(6, 18), y, kWood.shadow);
        p.pixel(x, y - 1, kWood.highlight);
    }
    for (int seam = 60; seam < w - 20; seam += 60) {
        p.line(seam, 2, seam, deck - 1, kWood.shadow);
        p.line(seam + 1, 2, seam + 1, deck - 1, kWood.light);
        for (int nailX : {seam - 4, seam + 5}) {
            p.pixel(nailX, 4, kInk);
            p.pixel(nailX, deck - 4, kInk);
        }
    }
    // Moss on the deck, hanging over its ends.
    for (int i = 0; i < w / 40; ++i) {
        int x = random.between(2, w - 16);
        int length = random.between(6, 14);
        p.fill(x, 0, x + length, 1, kGrass.light);
        p.pixel(x + length / 2, 2, kGrass.base);
    }
    p.fill(0, 0, 2, 6, kGrass.base);
    p.fill(w - 3, 0, w - 1, 5, kGrass.base);
    p.roundCorners(0, 0, w - 1, deck);
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::crate(Painter& p) {
    using namespace Palette;
    ArtRandom random(static_cast<uint32_t>(31 + p.width()));
    const int size = p.width();
    const int rim = size / 8;
    const int inner1 = rim;
    const int inner2 = size - 1 - rim;
    p.bevelBox(0, 0, size - 1, size - 1, kWood);
    p.fill(inner1, inner1, inner2, inner2, kWood.base);
    // The panel is set back: shadow under the rim's top and left, light inside its bottom and right.
    p.fill(inner1, inner1, inner2, inner1 + 1, kWood.shadow);
    p.fill(inner1, inner1, inner1 + 1, inner2, kWood.shadow);
    p.line(inner1, inner2, inner2, inner2, kWood.light);
    p.line(inner2, inner1, inner2, inner2, kWood.light);
    const int planks = 3;
    for (int i = 1; i < planks; ++i) {
        int x = inner1 + (inner2 - inner1) * i / planks;
        p.line(x, inner1 + 2, x, inner2 - 1, kWood.shadow);
    }
    // The brace, from the lower left to the upper right.
    for (int k = -rim / 2; k <= rim / 2; ++k) {
        p.line(inner1 + k, inner2, inner2, inner1 - k, kWood.light);
    }
    p.line(inner1 + rim / 2 + 1, inner2, inner2, inner1 + rim / 2 + 1, kWood.shadow);
    p.line(inner1, inner2 - rim / 2 - 1, inner2 - rim / 2 - 1, inner1, kWood.highlight);
    const int corners[4][2] = {{rim / 2, rim / 2},
                               {size - 1 - rim / 2, rim / 2},
                               {rim / 2, size - 1 - rim / 2},
                               {size - 1 - rim / 2, size - 1 - rim / 2}};
    for (const auto& nail : corners) {
        p.pixel(nail[0], nail[1], kInk);
        p.pixel(nail[0] - 1, nail[1] - 1, kMetal.highlight);
    }
    p.speckle(1, 1, size - 2, size - 2, kWood.shadow, 25, random);
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::wall(Painter& p) {
    using namespace Palette;
    ArtRandom random(47);
    const int w = p.width();
    const int h = p.height();
    const int brickWidth = 20;
    const int brickHeight = 16;
    p.fill(0, 0, w - 1, h - 1, kStone.shadow);
    for (int row = 0; row * brickHeight < h; ++row) {
        int top = row * brickHeight;
        int offset = row % 2 ? brickWidth / 2 : 0;
        for (int left = -offset; left < w; left += brickWidth) {
            // Each brick a touch lighter or darker than the next.
            int shift = random.between(-8, 8);
            auto tint = [shift](const Tone& t) { return Tone{t.r + shift, t.g + shift, t.b + shift}; };
            Ramp brick{tint(kStone.shadow), tint(kStone.base), tint(kStone.light), tint(kStone.highlight)};
            p.bevelBox(left < 0 ? 0 : left, top, left + brickWidth - 2, top + brickHeight - 2, brick);
        }
    }
    p.speckle(0, 0, w - 1, h - 1, kStone.shadow, 40, random);
    p.bevelBox(0, 0, w - 1, 7, kStone);
    for (int x = 0; x < w; ++x) {
        int moss = random.below(5);
        p.fill(x, 0, x, 1 + moss, moss > 2 ? kGrass.base : kGrass.light);
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::rock(Painter& p) {
    using namespace Palette;
    ArtRandom random(53);
    p.cluster({{18, 28, 16}, {38, 20, 19}, {56, 27, 15}, {30, 33, 10}, {48, 34, 10}}, kStone);
    p.speckle(0, 0, p.width() - 1, p.height() - 1, kStone.shadow, 50, random);
    p.line(36, 14, 40, 22, kStone.shadow);
    p.line(40, 22, 38, 30, kStone.shadow);
    for (int x = 28; x < 48; ++x) {
        for (int y = 0; y < 5; ++y) {
            p.stain(x, y, random.chance(600) ? kGrass.light : kGrass.base);
        }
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

// The hills stand on the ground's top row and reach a few rows under it, so that the notches in
// the turf show hillside rather than sky.
void LevelArt::hills(Painter& p) {
    using namespace Palette;
    ArtRandom random(61);
    const int w = p.width();
    const int h = p.height();
    auto farTop = [&](int x) {
        return h - 150 + Painter::tileWave(x, w, 1, 34.0, 0.5) + Painter::tileWave(x, w, 3, 16.0, 1.3);
    };
    auto nearTop = [&](int x) {
        return h - 70 + Painter::tileWave(x, w, 2, 22.0, 2.4) + Painter::tileWave(x, w, 5, 8.0, 0.2);
    };
    // Flat hills with a lit crest: far things get few details.
    auto paintRange = [&](auto top, const Ramp& ramp) {
        for (int x = 0; x < w; ++x) {
            int y0 = top(x);
            p.fill(x, y0, x, h - 1, ramp.base);
            p.fill(x, y0, x, y0 + 3, ramp.light);
            p.pixel(x, y0 + 1, ramp.highlight);
        }
    };
    paintRange(farTop, kFarHill);
    for (int i = 0; i < 26; ++i) {
        int x = random.below(w);
        p.disc(x, farTop(x) + random.between(14, 40), random.between(3, 7), kFarHill.shadow);
    }
    paintRange(nearTop, kNearHill);
    for (int i = 0; i < 30; ++i) {
        int x = random.below(w);
        p.disc(x, nearTop(x) + random.between(12, 50), random.between(2, 5), kNearHill.shadow);
    }
    for (int x = 0; x < w; ++x) {
        p.pixel(x, nearTop(x), kHaze);
    }
    p.outline(kHaze, Painter::BORDER_TOP);
}

void LevelArt::cloud(Painter& p) {
    using namespace Palette;
    p.cluster({{40, 42, 22}, {72, 32, 28}, {108, 36, 26}, {138, 44, 20}, {90, 46, 18}, {58, 48, 16}}, kCloud);
    for (int y = 54; y < p.height(); ++y) {
        for (int x = 0; x < p.width(); ++x) {
            p.erase(x, y);
        }
    }
    p.outline(kHaze, Painter::BORDER_ALL);
}

void LevelArt::tree(Painter& p) {
    using namespace Palette;
    ArtRandom random(71);
    const int left = 62;
    const int right = 78;
    const int bottom = p.height() - 1;
    p.triangle(48, bottom, left + 2, bottom - 22, left + 2, bottom, kBark.base);
    p.triangle(92, bottom, right - 2, bottom - 22, right - 2, bottom, kBark.shadow);
    p.fill(left, 96, right, bottom, kBark.base);
    p.fill(left, 96, left + 2, bottom, kBark.light);
    p.fill(right - 3, 96, right, bottom, kBark.shadow);
    for (int i = 0; i < 6; ++i) {
        int x = random.between(left + 4, right - 5);
        int y = random.between(110, bottom - 30);
        p.line(x, y, x, y + random.between(8, 20), kBark.shadow);
    }
    for (int k = 0; k < 5; ++k) {
        p.line(left + 2, 150 + k, 34, 112 + k, k < 2 ? kBark.light : kBark.base);
    }
    p.cluster({{70, 64, 44},
               {34, 92, 30},
               {104, 90, 32},
               {50, 42, 30},
               {94, 40, 30},
               {70, 104, 28},
               {20, 70, 18},
               {122, 64, 16}},
              kLeaf);
    p.speckle(4, 4, p.width() - 5, 132, kLeaf.shadow, 35, random);
    p.speckle(4, 4, p.width() - 5, 90, kLeaf.highlight, 12, random);
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::bush(Painter& p) {
    using namespace Palette;
    ArtRandom random(79);
    p.cluster({{20, 32, 16}, {44, 24, 21}, {70, 28, 19}, {86, 34, 11}, {32, 38, 10}}, kLeaf);
    p.speckle(2, 2, p.width() - 3, p.height() - 3, kLeaf.shadow, 40, random);
    for (int i = 0; i < 5; ++i) {
        int x = random.between(12, p.width() - 14);
        int y = random.between(14, 34);
        if (p.isOpaque(x, y)) {
            p.fill(x, y, x + 1, y + 1, kPetalRed);
        }
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::flowers(Painter& p) {
    using namespace Palette;
    const int bottom = p.height() - 1;
    const struct {
        int x;
        int height;
        const Tone& petal;
    } stems[] = {{6, 13, kPetalRed},
                 {16, 18, kPetalYellow},
                 {27, 11, kPetalWhite},
                 {37, 17, kPetalRed},
                 {48, 12, kPetalYellow}};
    for (const auto& stem : stems) {
        int top = bottom - stem.height;
        p.line(stem.x, bottom, stem.x, top + 2, kGrass.shadow);
        p.fill(stem.x + 1, bottom - 4, stem.x + 2, bottom - 3, kGrass.base);
        p.fill(stem.x - 2, bottom - 7, stem.x - 1, bottom - 6, kGrass.light);
        p.disc(stem.x, top, 2, stem.petal);
        p.pixel(stem.x - 1, top - 1, kPetalWhite);
        p.pixel(stem.x, top, &stem.petal == &kPetalYellow ? kDirt.base : kPetalYellow);
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::fence(Painter& p) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    p.bevelBox(0, 14, w - 1, 19, kWood);
    p.bevelBox(0, 29, w - 1, 34, kWood);
    for (int post : {0, 37, 74, w - 8}) {
        p.bevelBox(post, 6, post + 7, h - 1, kWood);
        p.triangle(post, 6, post + 3, 0, post + 7, 6, kWood.light);
        p.line(post + 4, 1, post + 7, 6, kWood.base);
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

void LevelArt::sign(Painter& p) {
    using namespace Palette;
    p.bevelBox(20, 22, 27, p.height() - 1, kBark);
    p.bevelBox(3, 8, 36, 27, kWood);
    p.triangle(36, 4, 46, 17, 36, 31, kWood.base);
    p.line(36, 5, 45, 17, kWood.light);
    p.line(37, 30, 45, 18, kWood.shadow);
    p.line(8, 14, 30, 14, kBark.shadow);
    p.line(8, 18, 24, 18, kBark.shadow);
    p.line(8, 22, 28, 22, kBark.shadow);
    p.outline(kInk, Painter::BORDER_ALL);
}

}  // namespace Grevan

#include "HarbourArt.h"

#include <algorithm>

namespace Grevan {

namespace {

// A lit window: a warm pane in a dark frame with a cross bar.
void window(Painter& p, int x, int y, int w, int h) {
    using namespace Palette;
    p.fill(x - 1, y - 1, x + w, y + h, kInk);
    p.fill(x, y, x + w - 1, y + h - 1, kLamp.base);
    p.fill(x, y, x + w / 2 - 1, y + h / 2 - 1, kLamp.light);
    p.line(x + w / 2, y, x + w / 2, y + h - 1, kInk);
    p.line(x, y + h / 2, x + w - 1, y + h / 2, kInk);
}

}  // namespace

const std::vector<ArtPiece>& HarbourArt::pieces() {
    static const std::vector<ArtPiece> all = {
        {"dusk_sky.bmp", 800, 400, sky},     {"dusk_sun.bmp", 110, 110, sun},
        {"far_town.bmp", 800, 170, farTown}, {"sea.bmp", 400, 180, sea},
        {"boat.bmp", 220, 150, boat},        {"quay.bmp", 400, 80, quay},
        {"pier_long.bmp", 240, 24, pier},    {"pier_short.bmp", 120, 24, pier},
        {"house.bmp", 180, 230, house},      {"house_tall.bmp", 150, 300, house},
        {"lantern.bmp", 26, 110, lantern},   {"barrels.bmp", 60, 64, barrels},
        {"bollard.bmp", 22, 22, bollard},    {"seawall.bmp", 40, 160, seawall},
    };
    return all;
}

// The sky tiles sideways: long thin clouds stay clear of the tile's borders.
void HarbourArt::sky(Painter& p) {
    using namespace Palette;
    const int h = p.height();
    p.blend(0, h / 2, kDuskTop, kDuskMiddle);
    p.blend(h / 2, h - 1, kDuskMiddle, kDuskHorizon);
    const struct {
        int x, y, length;
    } streaks[] = {{60, 150, 120},  {230, 205, 140}, {110, 262, 90}, {330, 296, 80},
                   {470, 118, 150}, {560, 236, 110}, {640, 170, 90}, {520, 320, 120}};
    for (const auto& s : streaks) {
        p.oval(s.x + s.length / 2, s.y + 2, s.length / 2, 4, kDuskCloud.shadow);
        p.oval(s.x + s.length / 2, s.y, s.length / 2 - 4, 3, kDuskCloud.base);
        p.oval(s.x + s.length / 2 - 8, s.y - 1, s.length / 3, 2, kDuskCloud.light);
        p.line(s.x + s.length / 4, s.y - 2, s.x + s.length / 2, s.y - 2, kDuskCloud.highlight);
    }
}

void HarbourArt::sun(Painter& p) {
    using namespace Palette;
    const int c = p.width() / 2;
    p.disc(c, c, 54, Tone{250, 186, 120});
    p.disc(c, c, 46, Tone{252, 204, 132});
    p.disc(c, c, 38, kLamp.light);
    p.disc(c - 6, c - 6, 26, kLamp.highlight);
}

// Far things get few details: a hill line with roofs, a church and a lighthouse on it, all in
// one violet, with a few windows lit.
void HarbourArt::farTown(Painter& p) {
    using namespace Palette;
    ArtRandom random(103);
    const int w = p.width();
    const int h = p.height();
    for (int x = 0; x < w; ++x) {
        int top = h - 60 + Painter::tileWave(x, w, 2, 18.0, 0.8) + Painter::tileWave(x, w, 5, 6.0, 2.0);
        p.fill(x, top, x, h - 1, kDuskHill.base);
        p.pixel(x, top, kDuskHill.light);
    }
    for (int left = 20; left < w - 60; left += random.between(34, 60)) {
        int width = random.between(22, 40);
        int base = h - 60 + Painter::tileWave(left + width / 2, w, 2, 18.0, 0.8) + 10;
        int top = base - random.between(18, 40);
        p.fill(left, top, left + width, base + 20, kDuskHill.base);
        p.triangle(left - 3, top, left + width / 2, top - width / 2, left + width + 3, top, kDuskHill.light);
        for (int k = 0; k < 2; ++k) {
            if (random.chance(600)) {
                int wx = left + random.between(4, width - 6);
                p.fill(wx, top + 6 + k * 10, wx + 2, top + 8 + k * 10, kLamp.base);
            }
        }
    }
    // The lighthouse, with its lamp lit, and a church spire.
    p.fill(680, 40, 696, h - 40, kDuskHill.light);
    p.triangle(676, 40, 688, 26, 700, 40, kDuskHill.base);
    p.fill(682, 44, 694, 50, kLamp.highlight);
    for (int k = 0; k < 3; ++k) {
        p.fill(680, 70 + k * 22, 696, 76 + k * 22, kDuskHill.base);
    }
    p.fill(300, 60, 316, h - 50, kDuskHill.base);
    p.triangle(298, 60, 308, 22, 318, 60, kDuskHill.light);
    p.outline(kDuskHill.shadow, Painter::BORDER_TOP);
}

// The water from the horizon down to the quay: bands darkening towards the viewer, ripples, and
// the sun's path broken into dashes.
void HarbourArt::sea(Painter& p) {
    using namespace Palette;
    ArtRandom random(109);
    const int w = p.width();
    const int h = p.height();
    p.blend(0, h - 1, kSea.light, kSea.shadow);
    p.line(0, 0, w - 1, 0, kDuskHorizon);
    for (int i = 0; i < 160; ++i) {
        int y = random.between(3, h - 4);
        int length = random.between(4, 10 + y / 8);
        int x = random.between(0, w - length - 1);
        p.line(x, y, x + length, y, random.chance(500) ? kSea.base : kSea.light);
    }
    for (int i = 0; i < 70; ++i) {
        int y = random.between(2, h / 2);
        int length = random.between(3, 16);
        int x = random.between(150, 250) - length / 2 + Painter::tileWave(y, h, 3, 12.0, 0.0);
        p.line(x, y, x + length, y, i % 3 ? kSea.highlight : kLamp.light);
    }
}

// A fishing boat afloat: hull, cabin with a lit porthole, mast and furled sail. Its lower rows
// are left for the water in front to cover.
void HarbourArt::boat(Painter& p) {
    using namespace Palette;
    const int deck = 104;
    // Mast, boom and rigging first, so that the hull and cabin stand in front of them.
    p.fill(118, 6, 121, deck, kBark.base);
    p.line(118, 6, 118, deck, kBark.light);
    p.line(40, deck - 8, 118, 10, kBark.shadow);
    p.line(122, 10, 200, deck - 6, kBark.shadow);
    p.bevelBox(76, 60, 170, 64, kWood);
    p.oval(124, 56, 44, 5, kPlaster.base);
    p.oval(120, 54, 36, 3, kPlaster.light);
    p.triangle(122, 6, 140, 11, 122, 16, kRoof.light);
    // The cabin.
    p.bevelBox(58, 72, 110, deck, kPlaster);
    p.bevelBox(54, 66, 114, 73, kRoof);
    p.disc(72, 86, 5, kInk);
    p.disc(72, 86, 4, kLamp.base);
    p.disc(71, 85, 2, kLamp.highlight);
    p.fill(90, 80, 102, deck, kWood.shadow);
    // The hull, a curved shape with a painted stripe.
    for (int x = 6; x < 214; ++x) {
        int lift = x < 40 ? (40 - x) * (40 - x) / 60 : x > 180 ? (x - 180) * (x - 180) / 50 : 0;
        p.fill(x, deck - lift, x, p.height() - 1 - lift / 2, kRoof.base);
        p.fill(x, deck - lift, x, deck - lift + 2, kWood.light);
        p.fill(x, deck - lift + 12, x, deck - lift + 15, kPlaster.light);
        p.pixel(x, p.height() - 2 - lift / 2, kRoof.shadow);
    }
    p.fill(150, 118, 160, 128, kRoof.shadow);
    p.outline(kInk, Painter::BORDER_ALL);
}

// The quay: a cobbled top on courses of big dressed stone, dark and wet at the waterline.
void HarbourArt::quay(Painter& p) {
    using namespace Palette;
    ArtRandom random(113);
    const int w = p.width();
    const int h = p.height();
    p.masonry(0, 12, w - 1, h - 1, kQuayStone, 50, 20, random);
    p.fill(0, 0, w - 1, 11, kQuayStone.base);
    for (int x = 0; x < w; x += 10) {
        int shift = (x / 10) % 2 ? 3 : 0;
        p.oval(x + 4, 4 + shift / 3, 4, 2, kQuayStone.light);
        p.pixel(x + 3, 3 + shift / 3, kQuayStone.highlight);
        p.oval(x + 6 + shift / 2, 9, 4, 1, kQuayStone.shadow);
    }
    p.line(0, 0, w - 1, 0, kQuayStone.highlight);
    p.fill(0, 11, w - 1, 12, kInk);
    p.speckle(0, 14, w - 1, h - 1, kQuayStone.shadow, 40, random);
    for (int i = 0; i < 12; ++i) {
        int x = random.between(4, w - 8);
        int y = random.between(30, h - 6);
        p.line(x, y, x, y + random.between(3, 8), kGrass.shadow);
    }
    p.outline(kInk, Painter::BORDER_TOP);
}

// A pier section: a plank deck on a cross beam, with the tops of its piles showing.
void HarbourArt::pier(Painter& p) {
    using namespace Palette;
    ArtRandom random(static_cast<uint32_t>(127 + p.width()));
    const int w = p.width();
    const int deck = 9;
    p.bevelBox(4, deck + 1, w - 5, deck + 6, kBark);
    for (int post = 8; post < w - 8; post += 56) {
        p.bevelBox(post, deck + 1, post + 9, p.height() - 1, kBark);
        p.line(post + 2, deck + 8, post + 7, deck + 12, kBark.shadow);
    }
    p.bevelBox(w - 18, deck + 1, w - 9, p.height() - 1, kBark);
    for (int left = 0; left < w; left += 20) {
        p.bevelBox(left, 0, std::min(left + 19, w - 1), deck, kWood);
        p.pixel(left + 3, 4, kInk);
        p.pixel(left + 16, 4, kInk);
    }
    p.speckle(0, 0, w - 1, deck, kWood.shadow, 30, random);
    p.outline(kInk, Painter::BORDER_ALL);
}

// A house of the village: plaster under a tiled roof, timber corners, a chimney, lit windows and
// a door. The routine fits it to the picture's size, so one drawing gives every house.
void HarbourArt::house(Painter& p) {
    using namespace Palette;
    ArtRandom random(static_cast<uint32_t>(131 + p.height()));
    const int w = p.width();
    const int h = p.height();
    const int eaves = h / 3;
    const int wall1 = 10;
    const int wall2 = w - 11;
    p.bevelBox(w - 50, 4, w - 36, eaves, kQuayStone);
    p.bevelBox(w - 53, 2, w - 33, 8, kQuayStone);
    p.bevelBox(wall1, eaves, wall2, h - 1, kPlaster);
    p.speckle(wall1 + 2, eaves + 2, wall2 - 2, h - 2, kPlaster.shadow, 30, random);
    p.fill(wall1, eaves, wall1 + 4, h - 1, kBark.base);
    p.fill(wall2 - 4, eaves, wall2, h - 1, kBark.shadow);
    for (int y = eaves + 60; y < h - 20; y += 70) {
        p.bevelBox(wall1, y, wall2, y + 5, kBark);
    }
    // The roof: courses of tiles narrowing to the ridge.
    for (int y = 0; y < eaves + 6; ++y) {
        int half = (w / 2) * (y + 6) / (eaves + 6);
        int row = y % 8;
        const Tone& tone = row == 7 ? kRoof.shadow : row < 2 ? kRoof.light : kRoof.base;
        p.line(w / 2 - half, y + 6, w / 2 + half - 1, y + 6, tone);
    }
    for (int y = 14; y < eaves + 6; y += 8) {
        int half = (w / 2) * (y + 6) / (eaves + 6);
        for (int x = w / 2 - half + 6; x < w / 2 + half - 4; x += 12) {
            p.line(x + (y / 8) % 2 * 6, y, x + (y / 8) % 2 * 6, y + 5, kRoof.shadow);
        }
    }
    // Windows in rows, and the door.
    const int rows = (h - eaves - 70) / 60 + 1;
    for (int row = 0; row < rows; ++row) {
        int y = eaves + 18 + row * 60;
        for (int x = wall1 + 16; x + 20 < wall2 - 8; x += 44) {
            window(p, x, y, 20, 24);
            p.bevelBox(x - 3, y + 25, x + 22, y + 28, kWood);
        }
    }
    p.bevelBox(w / 2 - 14, h - 50, w / 2 + 14, h - 1, kWood);
    p.line(w / 2, h - 48, w / 2, h - 2, kWood.shadow);
    p.pixel(w / 2 + 8, h - 24, kBrass.light);
    p.outline(kInk, Painter::BORDER_ALL);
}

// A lamp post on the quay, the lamp burning.
void HarbourArt::lantern(Painter& p) {
    using namespace Palette;
    const int c = p.width() / 2;
    const int h = p.height();
    p.bevelBox(c - 2, 30, c + 1, h - 6, kMetal);
    p.bevelBox(c - 6, h - 6, c + 5, h - 1, kMetal);
    p.bevelBox(c - 8, 28, c + 7, 31, kMetal);
    p.fill(c - 7, 10, c + 6, 27, kInk);
    p.fill(c - 6, 11, c + 5, 26, kLamp.base);
    p.fill(c - 4, 13, c + 1, 22, kLamp.light);
    p.fill(c - 3, 15, c - 1, 19, kLamp.highlight);
    p.triangle(c - 10, 10, c, 1, c + 9, 10, kMetal.base);
    p.line(c - 8, 9, c, 2, kMetal.light);
    p.outline(kInk, Painter::BORDER_ALL);
}

// Three barrels, two below and one on top, to crouch behind.
void HarbourArt::barrels(Painter& p) {
    using namespace Palette;
    const struct { int x, y; } spots[] = {{1, 32}, {30, 32}, {15, 0}};
    for (const auto& s : spots) {
        const int x1 = s.x;
        const int x2 = s.x + 28;
        const int y2 = s.y + 31;
        p.bevelBox(x1 + 2, s.y, x2 - 2, y2, kWood);
        p.fill(x1, s.y + 4, x2, y2 - 4, kWood.base);
        p.fill(x1, s.y + 4, x1 + 2, y2 - 4, kWood.light);
        p.fill(x2 - 2, s.y + 4, x2, y2 - 4, kWood.shadow);
        for (int band : {s.y + 6, y2 - 8}) {
            p.fill(x1, band, x2, band + 2, kMetal.shadow);
            p.line(x1, band, x2, band, kMetal.light);
        }
        for (int stave = x1 + 8; stave < x2 - 4; stave += 7) {
            p.line(stave, s.y + 1, stave, y2 - 1, kWood.shadow);
        }
    }
    p.outline(kInk, Painter::BORDER_ALL);
}

void HarbourArt::bollard(Painter& p) {
    using namespace Palette;
    p.bevelBox(4, 6, 17, 21, kMetal);
    p.bevelBox(1, 2, 20, 7, kMetal);
    p.line(6, 9, 6, 19, kMetal.highlight);
    p.line(4, 14, 17, 12, kBark.base);
    p.outline(kInk, Painter::BORDER_ALL);
}

// A tall block of the harbour wall, to stand behind or climb over from a pier.
void HarbourArt::seawall(Painter& p) {
    using namespace Palette;
    ArtRandom random(137);
    p.masonry(0, 0, p.width() - 1, p.height() - 1, kQuayStone, 20, 14, random);
    p.bevelBox(0, 0, p.width() - 1, 6, kQuayStone);
    p.speckle(0, 0, p.width() - 1, p.height() - 1, kQuayStone.shadow, 30, random);
    p.outline(kInk, Painter::BORDER_ALL);
}

}  // namespace Grevan

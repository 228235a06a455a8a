#include "GuiArt.h"

namespace Grevan {

namespace {

// Where the status bar draws onto the plate, in screen pixels.
const int kBarX = 128;
const int kHealthY = 52;
const int kArmourY = 70;
const int kBarWidth = 200;
const int kBarHeight = 12;
const int kIconX = 275;
const int kIconY = 15;
const int kIconWidth = 108;
const int kIconHeight = 32;
const int kReserveX = 392;
const int kReserveY = 30;
const int kCartridgeY = 50;
const int kCartridgeStep = 8;
const int kMagazineSlots = 30;
const int kCartridgeWidth = 7;
const int kCartridgeHeight = 14;
// The frame rate and kill lines are printed over the plate's top strip.
const int kTextStripHeight = 11;

// A recess in the plate: a dark well with an inked rim, lit along its lower edge as if cut in.
void well(Painter& p, int x1, int y1, int x2, int y2) {
    using namespace Palette;
    p.fill(x1, y1, x2, y2, kPanel.shadow);
    p.frame(x1, y1, x2, y2, kInk);
    p.line(x1 + 1, y2, x2, y2, kPanel.light);
    p.line(x2, y1 + 1, x2, y2, kPanel.light);
}

// A bolt head on the plate.
void rivet(Painter& p, int x, int y) {
    using namespace Palette;
    p.disc(x, y, 2, kInk);
    p.pixel(x, y, kPanel.light);
    p.pixel(x - 1, y - 1, kPanel.highlight);
}

// A bar at full length: a lit tube of one ramp with a shine along the top and segment notches,
// so that a shortened bar still reads as "some of the whole".
void bar(Painter& p, const Ramp& ramp) {
    using namespace Palette;
    const int w = p.width();
    const int h = p.height();
    p.fill(0, 0, w - 1, h - 1, ramp.base);
    p.fill(0, h - 4, w - 1, h - 1, ramp.shadow);
    p.fill(0, 1, w - 1, 3, ramp.light);
    p.line(0, 2, w - 1, 2, ramp.highlight);
    for (int x = 19; x < w; x += 20) {
        p.line(x, 1, x, h - 2, ramp.shadow);
        p.line(x + 1, 4, x + 1, h - 5, ramp.light);
    }
    p.line(0, 0, w - 1, 0, kInk);
    p.line(0, h - 1, w - 1, h - 1, kInk);
    p.line(0, 0, 0, h - 1, kInk);
    p.line(w - 1, 0, w - 1, h - 1, kInk);
}

}  // namespace

const std::vector<ArtPiece>& GuiArt::pieces() {
    static const std::vector<ArtPiece> all = {
        {"back.bmp", 648, 94, back},
        {"blood.bmp", kBarWidth, kBarHeight, blood},
        {"defend.bmp", kBarWidth, kBarHeight, defend},
        {"gun.bmp", kIconWidth, kIconHeight, gun},
        {"pistol.bmp", kIconWidth, kIconHeight, pistol},
        {"grenade.bmp", kIconWidth, kIconHeight, grenade},
        {"bullet.bmp", kCartridgeWidth, kCartridgeHeight, bullet},
    };
    return all;
}

// The plate lies in the screen's top-left corner; only its right and bottom edges are seen, so
// only those are inked, and the lower right corner is cut off to soften the block.
void GuiArt::back(Painter& p) {
    using namespace Palette;
    ArtRandom random(89);
    const int w = p.width();
    const int h = p.height();
    const int cut = 22;
    p.fill(0, 0, w - 1, h - 1, kPanel.base);
    p.speckle(0, kTextStripHeight + 1, w - 1, h - 1, kPanel.shadow, 60, random);
    p.fill(0, 0, w - 1, kTextStripHeight, kPanel.shadow);
    p.line(0, kTextStripHeight + 1, w - 1, kTextStripHeight + 1, kPanel.light);
    for (int k = 0; k < cut; ++k) {
        for (int x = w - cut + k; x < w; ++x) {
            p.erase(x, h - 1 - k);
        }
    }
    // A lit lip along the lower edges, under the ink the outline puts on.
    for (int x = 0; x < w - cut; ++x) {
        p.pixel(x, h - 2, kPanel.light);
    }
    for (int y = kTextStripHeight + 2; y < h - cut; ++y) {
        p.pixel(w - 2, y, kPanel.light);
    }
    p.line(w - cut - 1, h - 2, w - 2, h - cut - 1, kPanel.light);

    // The name, large, in brass with an ink shadow.
    p.text(17, 21, "GREVAN", kInk, 2);
    p.text(16, 20, "GREVAN", kBrass.base, 2);
    for (int y = 20; y < 26; ++y) {
        for (int x = 16; x < 16 + 6 * 16; ++x) {
            if (getpixel(p.bitmap(), x, y) == Painter::colour(kBrass.base)) {
                p.pixel(x, y, y < 22 ? kBrass.highlight : kBrass.light);
            }
        }
    }
    p.line(16, 39, 110, 39, kBrass.shadow);
    p.text(130, 24, "FIELD STATUS", kPanel.highlight);

    // Health and armour: an emblem and a label, and a trough the bar fills.
    const struct {
        int y;
        const char* label;
        const Ramp& ramp;
        bool cross;
    } bars[] = {{kHealthY, "HEALTH", kBlood, true}, {kArmourY, "ARMOUR", kArmour, false}};
    for (const auto& b : bars) {
        well(p, kBarX - 2, b.y - 2, kBarX + kBarWidth + 1, b.y + kBarHeight + 1);
        p.text(kBarX - 8 - 6 * 8, b.y + 2, b.label, b.ramp.light);
        const int cx = 24;
        const int cy = b.y + 6;
        if (b.cross) {
            p.fill(cx - 6, cy - 2, cx + 6, cy + 2, kInk);
            p.fill(cx - 2, cy - 6, cx + 2, cy + 6, kInk);
            p.fill(cx - 5, cy - 1, cx + 5, cy + 1, b.ramp.base);
            p.fill(cx - 1, cy - 5, cx + 1, cy + 5, b.ramp.base);
            p.pixel(cx - 1, cy - 4, b.ramp.highlight);
        } else {
            p.triangle(cx - 7, cy - 6, cx + 7, cy - 6, cx, cy + 8, kInk);
            p.fill(cx - 7, cy - 7, cx + 7, cy - 4, kInk);
            p.triangle(cx - 6, cy - 5, cx + 6, cy - 5, cx, cy + 6, b.ramp.base);
            p.triangle(cx - 6, cy - 5, cx, cy - 5, cx, cy + 6, b.ramp.light);
            p.pixel(cx - 4, cy - 4, b.ramp.highlight);
        }
        for (int tick = 1; tick < 4; ++tick) {
            p.pixel(kBarX + kBarWidth * tick / 4, b.y + kBarHeight + 3, kPanel.highlight);
        }
    }

    // The weapon slot, with a bolt in each corner.
    const int slotX1 = kIconX - 4;
    const int slotY1 = kIconY - 3;
    const int slotX2 = kIconX + kIconWidth + 1;
    const int slotY2 = kIconY + kIconHeight + 1;
    well(p, slotX1, slotY1, slotX2, slotY2);
    for (int x : {slotX1 - 4, slotX2 + 4}) {
        for (int y : {slotY1 + 3, slotY2 - 3}) {
            rivet(p, x, y);
        }
    }

    // The reserve: a label above the number the game prints at its place.
    p.text(kReserveX, kReserveY - 12, "RESERVE", kBrass.shadow);
    p.line(kReserveX, kReserveY + 9, kReserveX + 40, kReserveY + 9, kPanel.light);
    // The magazine: a rack with an empty slot for every cartridge it can show.
    const int rackX2 = kReserveX + kCartridgeStep * (kMagazineSlots - 1) + kCartridgeWidth + 2;
    well(p, kReserveX - 3, kCartridgeY - 3, rackX2, kCartridgeY + kCartridgeHeight + 2);
    for (int i = 0; i < kMagazineSlots; ++i) {
        const int x = kReserveX + kCartridgeStep * i;
        p.fill(x + 1, kCartridgeY + 2, x + kCartridgeWidth - 2, kCartridgeY + kCartridgeHeight - 1,
               kPanel.base);
        p.line(x + 1, kCartridgeY + kCartridgeHeight, x + kCartridgeWidth - 2, kCartridgeY + kCartridgeHeight,
               kPanel.light);
    }
    p.text(kReserveX, kCartridgeY + kCartridgeHeight + 6, "MAGAZINE", kBrass.shadow);
    for (int x = kReserveX + 80; x < rackX2; x += 6) {
        p.pixel(x, kCartridgeY + kCartridgeHeight + 9, kPanel.light);
    }
    p.outline(kInk, Painter::BORDER_RIGHT | Painter::BORDER_BOTTOM);
}

void GuiArt::blood(Painter& p) {
    bar(p, Palette::kBlood);
}

void GuiArt::defend(Painter& p) {
    bar(p, Palette::kArmour);
}

// The icons share one size and stand centred in it, so that each sits in the middle of the slot.
void GuiArt::gun(Painter& p) {
    using namespace Palette;
    // Stock, from the butt to the grip.
    p.triangle(6, 11, 32, 13, 6, 22, kWood.base);
    p.triangle(6, 22, 32, 13, 32, 19, kWood.shadow);
    p.fill(4, 10, 8, 23, kBark.base);
    p.line(8, 12, 30, 13, kWood.light);
    // Receiver, handguard and barrel.
    p.bevelBox(30, 10, 70, 19, kMetal);
    p.bevelBox(56, 11, 80, 18, kWood);
    p.fill(80, 13, 102, 15, kMetal.base);
    p.line(80, 13, 102, 13, kMetal.light);
    p.fill(98, 9, 100, 12, kMetal.shadow);
    p.fill(100, 12, 104, 16, kMetal.shadow);
    // Sight rail on top, grip and the curved magazine below.
    p.fill(38, 6, 54, 9, kMetal.shadow);
    p.fill(40, 5, 42, 6, kMetal.base);
    p.triangle(34, 19, 42, 19, 36, 28, kBark.base);
    p.line(35, 20, 37, 26, kBark.light);
    p.triangle(48, 19, 58, 19, 54, 30, kMetal.shadow);
    p.triangle(48, 19, 54, 30, 50, 30, kMetal.base);
    p.line(43, 19, 45, 23, kMetal.shadow);
    p.line(45, 23, 47, 19, kMetal.shadow);
    p.outline(kInk, Painter::BORDER_ALL);
}

void GuiArt::pistol(Painter& p) {
    using namespace Palette;
    // Slide, frame and a short barrel, pointing right like the rifle.
    p.bevelBox(36, 7, 74, 15, kMetal);
    for (int x = 40; x < 52; x += 3) {
        p.line(x, 9, x, 13, kMetal.shadow);
    }
    p.fill(36, 16, 72, 18, kMetal.shadow);
    p.fill(72, 3, 73, 6, kMetal.base);
    p.fill(36, 5, 38, 6, kMetal.base);
    // The grip, raked back, with wooden panels.
    p.triangle(38, 18, 52, 18, 46, 30, kBark.base);
    p.triangle(38, 18, 46, 30, 36, 29, kBark.base);
    p.line(40, 20, 38, 27, kBark.light);
    p.pixel(44, 22, kInk);
    p.pixel(42, 26, kInk);
    // The trigger guard.
    p.frame(52, 18, 60, 23, kMetal.shadow);
    p.line(55, 19, 55, 21, kMetal.base);
    p.outline(kInk, Painter::BORDER_ALL);
}

void GuiArt::grenade(Painter& p) {
    using namespace Palette;
    const int cx = p.width() / 2;
    const int cy = 19;
    // The pin's ring first, so that the body hides its lower part.
    p.disc(cx - 7, 7, 4, kBrass.base);
    p.disc(cx - 7, 7, 2, kTransparent);
    p.pixel(cx - 9, 5, kBrass.highlight);
    // The body: an olive egg scored into segments.
    p.cluster({{cx, cy, 10}, {cx, cy + 2, 9}}, kOlive);
    for (int y = cy - 6; y <= cy + 8; y += 5) {
        p.line(cx - 9, y, cx + 9, y, kOlive.shadow);
    }
    for (int x = cx - 5; x <= cx + 5; x += 5) {
        p.line(x, cy - 9, x, cy + 10, kOlive.shadow);
    }
    p.pixel(cx - 5, cy - 6, kOlive.highlight);
    p.pixel(cx - 6, cy - 5, kOlive.highlight);
    // The fuse on top, the lever along the right side and the ring.
    p.bevelBox(cx - 4, 4, cx + 3, 9, kMetal);
    p.fill(cx + 3, 5, cx + 7, 7, kMetal.base);
    p.line(cx + 7, 7, cx + 11, 18, kMetal.base);
    p.line(cx + 8, 7, cx + 12, 18, kMetal.shadow);
    p.outline(kInk, Painter::BORDER_ALL);
}

// A cartridge standing upright: a copper bullet on a brass case with a rim at the base.
void GuiArt::bullet(Painter& p) {
    using namespace Palette;
    const Tone copper{196, 106, 62};
    const Tone copperLight{236, 156, 104};
    const int w = p.width();
    const int h = p.height();
    p.fill(2, 1, w - 3, 4, copper);
    p.fill(1, 3, w - 2, 5, copper);
    p.pixel(2, 2, copperLight);
    p.pixel(2, 3, copperLight);
    p.bevelBox(1, 6, w - 2, h - 3, kBrass);
    p.fill(0, h - 2, w - 1, h - 1, kBrass.shadow);
    p.line(2, 7, 2, h - 4, kBrass.highlight);
    p.outline(kInk, Painter::BORDER_ALL);
}

}  // namespace Grevan

// Draws Grevan's character roles: for each role an animation description (config.dat), a
// walking strip (action 0), a dying strip (action 3) and the three weapon pictures, as 24-bit
// BMP files with magenta as the transparent colour. Every figure is built from a pose (the
// positions of its joints) so that walking and dying share one drawing routine.
//
//   rolegen OUTPUT_FOLDER      (the folder that holds image/role/)
#include <allegro.h>

#include <sys/stat.h>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Palette.h"

namespace {

const int kFrameWidth = 32;   // pixels
const int kFrameHeight = 48;  // pixels
const int kWalkFrames = 6;
const int kDieFrames = 5;
const double kPi = 3.14159265358979323846;

struct Colour {
    int r, g, b;
    int make() const { return makecol(r, g, b); }
};

// What tells one role from another: its colours and its headgear.
struct Look {
    const char* name;
    Colour skin, hair, headgear, headgearShade, shirt, shirtShade, trousers, trousersShade, boots, belt, pack;
    bool helmet;  // else a bandana with a knot behind
    bool backpack;
    Colour stock;  // the rifle's wooden or polymer parts
};

// The level's ink and metal, so that characters and pieces look of a kind.
constexpr Colour fromTone(const Grevan::Tone& t) {
    return {t.r, t.g, t.b};
}
const Colour kOutline = fromTone(Grevan::Palette::kInk);
const Colour kMetalDark = fromTone(Grevan::Palette::kMetal.shadow);
const Colour kMetal = fromTone(Grevan::Palette::kMetal.base);
const Colour kMetalLight = fromTone(Grevan::Palette::kMetal.light);

const Look kSoldier = {"soldier",      {226, 176, 132}, {70, 50, 30},  {88, 104, 50}, {64, 76, 36},
                       {108, 124, 62}, {80, 94, 44},    {92, 106, 54}, {66, 78, 38},  {50, 40, 30},
                       {58, 48, 30},   {96, 84, 52},    true,          true,          {70, 80, 42}};
const Look kRaider = {"raider",     {192, 136, 96}, {30, 24, 20},  {176, 42, 38}, {128, 28, 26},
                      {72, 72, 84}, {52, 52, 62},   {112, 96, 72}, {84, 70, 52},  {38, 30, 26},
                      {98, 70, 40}, {0, 0, 0},      false,         false,         {122, 78, 44}};
// The fortress's guards: steel helmets and the garrison's dark blue.
const Look kGuard = {"guard",       {214, 160, 120}, {40, 30, 24}, {150, 156, 170}, {96, 102, 118},
                     {72, 88, 144}, {52, 64, 108},   {88, 82, 96}, {62, 58, 70},    {30, 26, 24},
                     {120, 90, 40}, {0, 0, 0},       true,         false,           {70, 60, 56}};

// Joint positions of one figure within its frame, in pixels.
struct Pose {
    double headX, headY;
    double neckX, neckY, hipX, hipY;
    double frontKneeX, frontKneeY, frontFootX, frontFootY;
    double backKneeX, backKneeY, backFootX, backFootY;
    double elbowX, elbowY, handX, handY;
    double backElbowX, backElbowY, backHandX, backHandY;
};

void thickLine(BITMAP* b, double x1, double y1, double x2, double y2, int thickness, int colour) {
    int steps = static_cast<int>(std::ceil(std::hypot(x2 - x1, y2 - y1))) + 1;
    for (int i = 0; i <= steps; i++) {
        double t = static_cast<double>(i) / steps;
        int x = static_cast<int>(std::lround(x1 + (x2 - x1) * t));
        int y = static_cast<int>(std::lround(y1 + (y2 - y1) * t));
        int half = thickness / 2;
        rectfill(b, x - half, y - half, x - half + thickness - 1, y - half + thickness - 1, colour);
    }
}

void drawLeg(BITMAP* b, const Look& look, double hipX, double hipY, double kneeX, double kneeY, double footX,
             double footY, bool front) {
    int cloth = (front ? look.trousers : look.trousersShade).make();
    thickLine(b, hipX, hipY, kneeX, kneeY, 5, cloth);
    thickLine(b, kneeX, kneeY, footX, footY - 2, 4, cloth);
    // A boot points the way the figure faces: to the right.
    rectfill(b, static_cast<int>(footX) - 2, static_cast<int>(footY) - 3, static_cast<int>(footX) + 3,
             static_cast<int>(footY), look.boots.make());
}

void drawArm(BITMAP* b, const Look& look, double shoulderX, double shoulderY, double elbowX, double elbowY,
             double handX, double handY, bool front) {
    int cloth = (front ? look.shirt : look.shirtShade).make();
    thickLine(b, shoulderX, shoulderY, elbowX, elbowY, 4, cloth);
    thickLine(b, elbowX, elbowY, handX, handY, 3, cloth);
    rectfill(b, static_cast<int>(handX) - 1, static_cast<int>(handY) - 1, static_cast<int>(handX) + 1,
             static_cast<int>(handY) + 1, look.skin.make());
}

void drawHead(BITMAP* b, const Look& look, double x, double y) {
    int cx = static_cast<int>(std::lround(x));
    int cy = static_cast<int>(std::lround(y));
    circlefill(b, cx, cy, 5, look.skin.make());
    putpixel(b, cx + 3, cy - 1, kOutline.make());   // the eye, facing right
    putpixel(b, cx + 5, cy + 1, look.skin.make());  // the nose
    hline(b, cx + 1, cy + 3, cx + 3, look.hair.make());
    if (look.helmet) {
        circlefill(b, cx, cy - 2, 6, look.headgear.make());
        rectfill(b, cx - 7, cy - 2, cx + 7, cy + 5, makecol(255, 0, 255));
        circlefill(b, cx, cy + 1, 5, look.skin.make());
        putpixel(b, cx + 3, cy, kOutline.make());
        hline(b, cx + 1, cy + 4, cx + 3, look.hair.make());
        hline(b, cx - 7, cy - 2, cx + 7, look.headgearShade.make());
        putpixel(b, cx - 3, cy - 6, look.headgearShade.make());
        putpixel(b, cx + 1, cy - 7, look.headgearShade.make());
    } else {
        rectfill(b, cx - 5, cy - 5, cx + 5, cy - 3, look.headgear.make());
        hline(b, cx - 4, cy - 6, cx + 3, look.headgear.make());
        hline(b, cx - 5, cy - 3, cx + 5, look.headgearShade.make());
        // The bandana's knot and tails, behind the head.
        rectfill(b, cx - 7, cy - 4, cx - 6, cy - 2, look.headgear.make());
        thickLine(b, cx - 7, cy - 2, cx - 9, cy + 2, 2, look.headgearShade.make());
        rectfill(b, cx - 5, cy - 2, cx - 4, cy + 2, look.hair.make());
    }
}

void drawTorso(BITMAP* b, const Look& look, const Pose& p) {
    if (look.backpack) {
        double bx = (p.neckX + p.hipX) / 2 - 6;
        double by = (p.neckY + p.hipY) / 2 - 2;
        thickLine(b, bx, by - 3, bx + (p.hipX - p.neckX) * 0.2, by + 4, 6, look.pack.make());
    }
    thickLine(b, p.neckX, p.neckY + 2, p.hipX, p.hipY - 1, 9, look.shirt.make());
    // A shaded back edge and a belt give the torso its volume.
    thickLine(b, p.neckX - 3, p.neckY + 3, p.hipX - 3, p.hipY - 1, 2, look.shirtShade.make());
    thickLine(b, p.hipX - 4, p.hipY - 1, p.hipX + 4, p.hipY - 1, 2, look.belt.make());
    if (!look.backpack) {
        // The raider's vest: two pockets on the chest.
        double mx = (p.neckX + p.hipX) / 2 + 2;
        double my = (p.neckY + p.hipY) / 2;
        rectfill(b, static_cast<int>(mx) - 1, static_cast<int>(my) - 3, static_cast<int>(mx) + 2,
                 static_cast<int>(my) - 1, look.shirtShade.make());
        rectfill(b, static_cast<int>(mx) - 1, static_cast<int>(my) + 2, static_cast<int>(mx) + 2,
                 static_cast<int>(my) + 4, look.shirtShade.make());
    }
}

// A dark line around the figure, on the transparent pixels that touch it.
void outline(BITMAP* frame) {
    int transparent = makecol(255, 0, 255);
    std::vector<bool> edge(frame->w * frame->h, false);
    for (int y = 0; y < frame->h; y++) {
        for (int x = 0; x < frame->w; x++) {
            if (getpixel(frame, x, y) != transparent) {
                continue;
            }
            const int neighbours[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
            for (const auto& n : neighbours) {
                int c = getpixel(frame, x + n[0], y + n[1]);
                if (c != -1 && c != transparent) {
                    edge[y * frame->w + x] = true;
                }
            }
        }
    }
    for (int y = 0; y < frame->h; y++) {
        for (int x = 0; x < frame->w; x++) {
            if (edge[y * frame->w + x]) {
                putpixel(frame, x, y, kOutline.make());
            }
        }
    }
}

BITMAP* drawFigure(const Look& look, const Pose& p) {
    BITMAP* frame = create_bitmap(kFrameWidth, kFrameHeight);
    clear_to_color(frame, makecol(255, 0, 255));
    drawArm(frame, look, p.neckX - 1, p.neckY + 3, p.backElbowX, p.backElbowY, p.backHandX, p.backHandY,
            false);
    drawLeg(frame, look, p.hipX - 1, p.hipY, p.backKneeX, p.backKneeY, p.backFootX, p.backFootY, false);
    drawLeg(frame, look, p.hipX + 1, p.hipY, p.frontKneeX, p.frontKneeY, p.frontFootX, p.frontFootY, true);
    drawTorso(frame, look, p);
    drawHead(frame, look, p.headX, p.headY);
    drawArm(frame, look, p.neckX + 1, p.neckY + 3, p.elbowX, p.elbowY, p.handX, p.handY, true);
    outline(frame);
    return frame;
}

// A step of the walk: the legs swing in opposite phase and the body bobs a pixel.
Pose walkingPose(int frame) {
    double phase = 2 * kPi * frame / kWalkFrames;
    double swing = 7 * std::sin(phase);
    double lift = std::fabs(std::cos(phase)) < 0.6 ? 1 : 0;
    double bob = lift;
    Pose p{};
    p.headX = 17;
    p.headY = 8 + bob;
    p.neckX = 16;
    p.neckY = 13 + bob;
    p.hipX = 16;
    p.hipY = 29 + bob;
    p.frontFootX = 16 + swing;
    p.frontFootY = 47;
    p.frontKneeX = 16 + swing * 0.5 + 2;
    p.frontKneeY = 38 + bob - (swing > 0 ? 1 : 0);
    p.backFootX = 16 - swing;
    p.backFootY = 47;
    p.backKneeX = 16 - swing * 0.5 + 2;
    p.backKneeY = 38 + bob - (swing < 0 ? 1 : 0);
    // The arms hold the weapon forward at the chest; the picture of the weapon covers the hands.
    p.elbowX = 15;
    p.elbowY = 21 + bob;
    p.handX = 21;
    p.handY = 24 + bob;
    p.backElbowX = 13;
    p.backElbowY = 21 + bob;
    p.backHandX = 18;
    p.backHandY = 23 + bob;
    return p;
}

// The fall after the fatal hit: thrown back, knees buckling, down on the back.
Pose dyingPose(int frame) {
    Pose p = walkingPose(0);
    p.frontFootX = 18;
    p.backFootX = 14;
    p.frontKneeX = 19;
    p.backKneeX = 15;
    switch (frame) {
        case 0:  // thrown back by the hit
            p.headX = 14;
            p.neckX = 14;
            p.handX = 22;
            p.handY = 18;
            p.elbowY = 19;
            break;
        case 1:  // knees buckle
            p.headX = 13;
            p.headY = 15;
            p.neckX = 13;
            p.neckY = 20;
            p.hipX = 15;
            p.hipY = 35;
            p.frontKneeX = 21;
            p.frontKneeY = 40;
            p.backKneeX = 19;
            p.backKneeY = 41;
            p.elbowX = 10;
            p.elbowY = 26;
            p.handX = 7;
            p.handY = 30;
            p.backElbowX = 11;
            p.backElbowY = 27;
            p.backHandX = 9;
            p.backHandY = 32;
            break;
        case 2:  // on the knees, falling back
            p.headX = 10;
            p.headY = 23;
            p.neckX = 11;
            p.neckY = 28;
            p.hipX = 16;
            p.hipY = 40;
            p.frontKneeX = 24;
            p.frontKneeY = 42;
            p.frontFootX = 20;
            p.backKneeX = 23;
            p.backKneeY = 44;
            p.backFootX = 18;
            p.elbowX = 7;
            p.elbowY = 33;
            p.handX = 4;
            p.handY = 38;
            p.backElbowX = 9;
            p.backElbowY = 34;
            p.backHandX = 7;
            p.backHandY = 40;
            break;
        default: {  // lying on the back, knees up, then flat
            bool flat = frame == kDieFrames - 1;
            p.headX = 8;
            p.headY = 40;
            p.neckX = 9;
            p.neckY = 39;
            p.hipX = 20;
            p.hipY = 44;
            p.frontKneeX = flat ? 26 : 24;
            p.frontKneeY = flat ? 44 : 39;
            p.frontFootX = 29;
            p.frontFootY = 47;
            p.backKneeX = flat ? 25 : 23;
            p.backKneeY = flat ? 45 : 40;
            p.backFootX = 28;
            p.backFootY = 47;
            p.elbowX = 12;
            p.elbowY = 45;
            p.handX = 15;
            p.handY = 46;
            p.backElbowX = 8;
            p.backElbowY = 45;
            p.backHandX = 4;
            p.backHandY = 46;
            break;
        }
    }
    return p;
}

BITMAP* strip(const Look& look, int frames, Pose (*pose)(int)) {
    BITMAP* s = create_bitmap(kFrameWidth * frames, kFrameHeight);
    for (int f = 0; f < frames; f++) {
        BITMAP* frame = drawFigure(look, pose(f));
        blit(frame, s, 0, 0, f * kFrameWidth, 0, kFrameWidth, kFrameHeight);
        destroy_bitmap(frame);
    }
    return s;
}

// The rifle, pointing right, centred on the owner's chest: stock, body, magazine, barrel.
BITMAP* rifle(const Look& look) {
    BITMAP* b = create_bitmap(32, 9);
    clear_to_color(b, makecol(255, 0, 255));
    rectfill(b, 1, 3, 9, 6, look.stock.make());
    rectfill(b, 1, 5, 3, 7, look.stock.make());
    rectfill(b, 9, 2, 22, 5, kMetal.make());
    hline(b, 9, 2, 22, kMetalLight.make());
    rectfill(b, 13, 6, 15, 8, kMetalDark.make());
    rectfill(b, 18, 6, 19, 7, look.stock.make());
    rectfill(b, 22, 3, 31, 4, kMetalDark.make());
    rectfill(b, 12, 0, 15, 1, kMetalDark.make());
    putpixel(b, 29, 2, kMetalDark.make());
    return b;
}

// The pistol, held out at arm's length: the left half of the picture stays transparent.
BITMAP* pistol() {
    BITMAP* b = create_bitmap(24, 9);
    clear_to_color(b, makecol(255, 0, 255));
    rectfill(b, 14, 2, 23, 4, kMetal.make());
    hline(b, 14, 2, 23, kMetalLight.make());
    rectfill(b, 14, 5, 17, 8, kMetalDark.make());
    putpixel(b, 18, 5, kMetalDark.make());
    return b;
}

// A hand grenade in the hand, out in front.
BITMAP* grenade(const Look& look) {
    BITMAP* b = create_bitmap(20, 10);
    clear_to_color(b, makecol(255, 0, 255));
    ellipsefill(b, 16, 6, 3, 3, look.headgearShade.r > 100 ? makecol(70, 84, 40) : look.headgear.make());
    hline(b, 14, 5, 18, kOutline.make());
    rectfill(b, 15, 1, 17, 2, kMetal.make());
    thickLine(b, 17, 2, 19, 5, 1, kMetalLight.make());
    putpixel(b, 14, 1, kMetalLight.make());
    return b;
}

bool save(const std::string& path, BITMAP* b) {
    bool ok = save_bitmap(path.c_str(), b, nullptr) == 0;
    destroy_bitmap(b);
    if (!ok) {
        fprintf(stderr, "cannot write %s\n", path.c_str());
    }
    return ok;
}

std::string frameList(int frames) {
    std::string list = std::to_string(frames) + "\n";
    for (int f = 0; f < frames; f++) {
        list += std::to_string(f * kFrameWidth) + " 0 " + std::to_string((f + 1) * kFrameWidth) + " " +
                std::to_string(kFrameHeight) + "\n";
    }
    return list;
}

bool writeRole(const std::string& root, const Look& look) {
    std::string folder = root + "/image/role/" + look.name;
    std::string relative = std::string("image/role/") + look.name;
    mkdir((root + "/image").c_str(), 0755);
    mkdir((root + "/image/role").c_str(), 0755);
    mkdir(folder.c_str(), 0755);
    // Strip paths are read from the game's working directory, not from the role's folder.
    std::string config = "2\n0 3 1 " + relative + "/walk.bmp " + frameList(kWalkFrames) + "3 4 0 " +
                         relative + "/die.bmp " + frameList(kDieFrames);
    FILE* f = fopen((folder + "/config.dat").c_str(), "w");
    if (!f) {
        fprintf(stderr, "cannot write %s/config.dat\n", folder.c_str());
        return false;
    }
    fputs(config.c_str(), f);
    fclose(f);
    printf("%s\n", folder.c_str());
    return save(folder + "/walk.bmp", strip(look, kWalkFrames, walkingPose)) &&
           save(folder + "/die.bmp", strip(look, kDieFrames, dyingPose)) &&
           save(folder + "/gun.bmp", rifle(look)) && save(folder + "/pistol.bmp", pistol()) &&
           save(folder + "/grenade.bmp", grenade(look));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: rolegen OUTPUT_FOLDER\n");
        return 2;
    }
    if (install_allegro(SYSTEM_NONE, &errno, atexit) != 0) {
        fprintf(stderr, "cannot start Allegro\n");
        return 1;
    }
    set_color_depth(32);
    bool ok = writeRole(argv[1], kSoldier) && writeRole(argv[1], kRaider) && writeRole(argv[1], kGuard);
    return ok ? 0 : 1;
}

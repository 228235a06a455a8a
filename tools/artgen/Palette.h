#pragma once

namespace Grevan {

// One colour of the palette, 0 to 255 per channel.
struct Tone {
    int r;
    int g;
    int b;
};

// The four tones of one material, from the side away from the light to the edge facing it.
// The light comes from the upper left in every picture.
struct Ramp {
    Tone shadow;
    Tone base;
    Tone light;
    Tone highlight;
};

// The colours every picture of the game is drawn in. Keeping to these ramps and to the one
// outline colour is what makes pieces drawn apart look of a kind.
namespace Palette {

// Allegro's transparent colour in true-colour bitmaps; no other tone may equal it.
constexpr Tone kTransparent{255, 0, 255};
// Close objects are outlined in the dark ink, far ones (clouds, hills) in the haze.
constexpr Tone kInk{44, 36, 52};
constexpr Tone kHaze{122, 158, 178};

constexpr Ramp kGrass{{52, 108, 56}, {84, 150, 60}, {124, 188, 72}, {176, 222, 104}};
constexpr Ramp kDirt{{92, 60, 46}, {134, 88, 58}, {164, 114, 74}, {190, 140, 94}};
constexpr Ramp kWood{{128, 80, 50}, {176, 118, 68}, {208, 154, 92}, {232, 190, 128}};
constexpr Ramp kBark{{72, 48, 42}, {104, 70, 52}, {136, 96, 66}, {160, 120, 84}};
constexpr Ramp kStone{{92, 94, 104}, {132, 134, 138}, {170, 172, 168}, {204, 204, 194}};
constexpr Ramp kLeaf{{40, 98, 72}, {66, 142, 82}, {108, 180, 92}, {156, 212, 110}};
constexpr Ramp kCloud{{200, 218, 236}, {232, 240, 248}, {246, 250, 252}, {254, 254, 254}};
constexpr Ramp kFarHill{{112, 170, 160}, {132, 188, 168}, {150, 202, 176}, {176, 218, 186}};
constexpr Ramp kNearHill{{82, 148, 116}, {100, 166, 120}, {124, 184, 128}, {154, 204, 140}};
constexpr Ramp kMetal{{70, 76, 92}, {106, 114, 132}, {150, 160, 176}, {206, 214, 224}};
// The status bar's plate and the bars on it.
constexpr Ramp kPanel{{16, 14, 24}, {30, 28, 42}, {50, 48, 68}, {84, 82, 108}};
constexpr Ramp kBlood{{118, 22, 36}, {182, 38, 48}, {226, 78, 82}, {252, 164, 150}};
constexpr Ramp kArmour{{30, 66, 128}, {50, 108, 180}, {94, 158, 220}, {174, 212, 242}};
constexpr Ramp kBrass{{128, 88, 30}, {188, 138, 50}, {226, 184, 82}, {250, 228, 152}};
constexpr Ramp kOlive{{56, 68, 40}, {84, 100, 54}, {116, 134, 72}, {160, 176, 104}};
// The guide robot: a pale shell, warm trim and glowing eyes.
constexpr Ramp kShell{{146, 150, 172}, {198, 204, 216}, {228, 232, 238}, {250, 250, 252}};
constexpr Ramp kTrim{{168, 78, 40}, {224, 118, 50}, {246, 164, 80}, {254, 210, 140}};
constexpr Ramp kGlow{{20, 104, 128}, {40, 178, 200}, {110, 228, 240}, {222, 254, 254}};
// The harbour at dusk: a violet sky warming to the horizon, the sea, plaster, roof tiles, lamplight.
constexpr Tone kDuskTop{56, 42, 90};
constexpr Tone kDuskMiddle{168, 88, 122};
constexpr Tone kDuskHorizon{248, 168, 110};
constexpr Ramp kDuskCloud{{150, 82, 120}, {200, 112, 128}, {232, 146, 130}, {250, 192, 150}};
constexpr Ramp kDuskHill{{62, 46, 92}, {84, 60, 110}, {104, 76, 126}, {136, 100, 144}};
constexpr Ramp kSea{{38, 46, 92}, {58, 70, 124}, {86, 98, 148}, {244, 178, 122}};
constexpr Ramp kQuayStone{{76, 70, 94}, {110, 102, 122}, {144, 134, 148}, {180, 168, 172}};
constexpr Ramp kPlaster{{150, 116, 122}, {192, 160, 150}, {220, 192, 172}, {240, 220, 198}};
constexpr Ramp kRoof{{106, 38, 46}, {156, 60, 56}, {196, 94, 72}, {226, 140, 104}};
constexpr Ramp kLamp{{206, 120, 44}, {246, 184, 80}, {255, 226, 140}, {255, 248, 212}};
// The fortress at night: a deep blue sky, moonlit stone, dark hills, torchlight from kLamp.
constexpr Tone kNightTop{8, 10, 30};
constexpr Tone kNightHorizon{38, 50, 96};
constexpr Ramp kNightStone{{58, 62, 84}, {90, 96, 120}, {124, 130, 152}, {168, 174, 192}};
constexpr Ramp kNightHill{{18, 22, 46}, {26, 32, 60}, {36, 44, 76}, {56, 68, 104}};
constexpr Ramp kNightEarth{{36, 30, 40}, {56, 46, 54}, {76, 64, 70}, {98, 86, 90}};
constexpr Ramp kFarStone{{18, 20, 36}, {28, 31, 50}, {38, 42, 64}, {54, 60, 84}};
constexpr Ramp kMoon{{168, 176, 200}, {212, 218, 232}, {236, 240, 246}, {252, 252, 254}};

constexpr Tone kPetalRed{226, 80, 86};
constexpr Tone kPetalYellow{246, 206, 82};
constexpr Tone kPetalWhite{244, 240, 232};
constexpr Tone kSky{150, 204, 236};

}  // namespace Palette

}  // namespace Grevan

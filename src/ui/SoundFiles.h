#pragma once

#include <cstddef>
#include <iterator>

namespace Grevan {

// The sound effects the game always loads, by the name it plays them under. The two reload names
// share a file but get a buffer and a source each.
struct SoundFile {
    const char* name;
    const char* file;  // relative to the working directory
};

inline constexpr SoundFile kSoundFiles[] = {
    {"gun", "sound/weapons/m4a1_unsil-1.wav"},
    {"pistol", "sound/weapons/p228-1.wav"},
    {"grenade_hitground", "sound/weapons/he_bounce-1.wav"},
    {"grenade_explode", "sound/weapons/explode3.wav"},
    {"pistol_reload", "sound/weapons/generic_reload.wav"},
    {"gun_reload", "sound/weapons/generic_reload.wav"},
};

}  // namespace Grevan

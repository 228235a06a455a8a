#pragma once

#include <allegro.h>

#include "actors/RoleDescription.h"

namespace Grevan {

// One action of a role (walking, dying): an image strip cut into frames. It owns the strip and
// its frames, which are sub-bitmaps of the strip.
struct AniAction {
    static const int kMaxFrames = RoleDescription::kMaxFrames;

    AniAction() = default;
    ~AniAction();
    AniAction(const AniAction&) = delete;
    AniAction& operator=(const AniAction&) = delete;

    int id = 0;
    int frameCount = 0;
    int frameDelay = 0;  // extra ticks each frame is held
    bool loop = false;
    BITMAP* bitmap = nullptr;
    // A slot whose sub-bitmap could not be made stays null.
    BITMAP* frames[kMaxFrames] = {};
};

}  // namespace Grevan

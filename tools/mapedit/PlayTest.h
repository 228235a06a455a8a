#pragma once

#include <string>

#include "LevelDocument.h"
#include "MapEditor.h"

// Plays the level in the game without touching the author's files: the game's folder (the
// working directory) is copied to a temporary folder, the level and a script that plays it are
// written there, and the game runs in that folder until it ends. The folder is removed afterwards.
class PlayTest {
  public:
    static constexpr const char* kMapName = "maps/playtest.map";

    // The user's player stands with its feet on `start`.
    static std::string scriptFor(const LevelPoint& start);

    // Blocks until the game has ended. False, with the reason, when the level could not be
    // written or the game could not be started.
    static bool run(const LevelDocument& document, const LevelPoint& start, const std::string& game,
                    std::string& error);
};

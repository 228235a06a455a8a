#pragma once

#include <allegro.h>

#include <string>
#include <vector>

#include "ReachInput.h"
#include "ReachLevel.h"

namespace Grevan {
class Game;
}

// Plays a witness in the game's own headless loop: a player of the role, its feet at start, is
// added to the level the game has loaded, each input is handed over before one whole frame
// (Game::playFrame, drawing into buffer), and the player is taken out again afterwards. Gives
// the spans of level (ReachLevel::of the same game) that the player stands on after the last
// frame, as indices; none when it is in the air.
std::vector<int> replayWitness(Grevan::Game& game, const ReachLevel& level, ReachPoint start,
                               const ReachWitness& witness, const std::string& role, BITMAP* buffer);

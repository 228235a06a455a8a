#pragma once

#include "script/VeskScript.h"

// Thrown out of a host call once a dry run has made its allowed number of host calls: a script
// that never ends in the dry run would otherwise print for ever.
struct HostCallLimitReached {
    long limit;
};

// Registers the game's 29 host functions for a dry run. print and isNull behave as in the
// game; every other one is a stand-in that writes one line naming the call and its arguments to
// standard error, e.g. addPlayer(0, 255, "soldier", "Hero", 100, 200), and follows the game where
// a script's course depends on it:
// - addPlayer, addPresent and addHiddenPresent return fresh ids, 1, 2, 3, ... (the game's differ:
//   every object it makes, map pieces and weapons too, takes the next id);
// - loadMap reads the map file as the game does: a file the game refuses prints the game's line
//   on standard output; a map it loads ends the players made before;
// - playerX and playerY return the x and y that addPlayer last gave that player, the x after a
//   playerDoMove (a walk changes only x); undefined for an id that is no player;
// - the waiting functions return at once; waitForPlayerAction on an id that is no player, which
//   waits for ever in the game, says so on standard error.
// Each stand-in reads its arguments at the depths the game's function does. After `maxCalls` host
// calls the next one throws HostCallLimitReached.
void registerStandInHostFunctions(VeskScript& script, long maxCalls);

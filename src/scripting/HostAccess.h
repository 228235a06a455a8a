#pragma once

#include <functional>

#include "core/GameLock.h"

namespace Grevan {

class Game;
class Player;

// What the host functions share: the game they act on, the player lookup and the waiting.

// Set by ScriptSystem::start before the script thread starts.
extern Game* game;

// The player with that object id; null when the id is unknown or not a player's. The caller
// holds the game lock.
Player* findPlayer(int id);

// Runs body(player) under the game lock when the id is a player's; else does nothing.
template <typename Body>
void withPlayer(int id, Body body) {
    GameLockGuard guard;
    if (Player* p = findPlayer(id)) {
        body(*p);
    }
}

// Tests `condition` and sleeps 100 ms between tests, holding no lock, until it is false or the
// game has ended.
void waitWhile(const std::function<bool()>& condition);

// Sleeps that many milliseconds in slices of at most 100, ending early when the game ends.
// Nothing for zero or less.
void sleepWhileRunning(int milliseconds);

}  // namespace Grevan

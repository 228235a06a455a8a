#include "core/ClientNetwork.h"

#include "actors/Player.h"
#include "core/Game.h"
#include "core/GameLock.h"

namespace Grevan {

bool ClientNetwork::sendEvent(std::unique_ptr<Event> e) {
    Game* game = Game::getInstance();
    // Input is read outside the game lock, but the main player and the queue belong to the
    // world: the script thread may replace the player or load a map (clearing the queue).
    GameLockGuard guard;
    Player* mainPlayer = game->getMainPlayer();
    if (!mainPlayer || discard) {
        return false;
    }
    e->playerId = mainPlayer->getPlayerId();
    game->getEventSystem().addEvent(std::move(e));
    return true;
}

}  // namespace Grevan

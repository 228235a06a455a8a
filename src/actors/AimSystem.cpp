#include "actors/AimSystem.h"

#include "actors/Player.h"
#include "core/Game.h"
#include "core/MapSystem.h"

namespace Grevan {

AimSystem::AimSystem() : sight(std::make_unique<FrontSight>()) {}

bool AimSystem::steersMouse() const {
    Game* game = Game::getInstance();
    MapSystem& map = game->getMapSystem();
    int x = getX();
    int y = getY();
    bool drifted = x != pointerX || y != pointerY;
    bool insideView = 0 < x && x < map.getClientWidth() && 0 < y && y < map.getClientHeight();
    Player* mainPlayer = game->getMainPlayer();
    return drifted && insideView && mainPlayer && mainPlayer->isAlive();
}

void AimSystem::move() {
    if (steersMouse()) {
        pointerX = getX();
        pointerY = getY();
        // Without a mouse driver (a headless game) there is no pointer to move.
        if (mouse_driver) {
            position_mouse(pointerX, pointerY);
        }
    }
    sight->move();
}

}  // namespace Grevan

#include "actors/Explosion.h"

#include "actors/Player.h"
#include "core/Game.h"

namespace Grevan {

void Explosion::move() {
    for (Player* player : Game::getInstance()->getPlayers()) {
        int cx = player->getCentralX();
        int cy = player->getCentralY();
        int dx = cx - getX();
        int dy = cy - getY();
        if (dx * dx + dy * dy <= radius * radius) {
            // A hit on the centre row: 5 damage a frame.
            Vector away(static_cast<float>(dx), static_cast<float>(dy));
            player->hitBy(owner, cx, cy, away.normalized());
        }
    }
    GrowingCircle::move();
}

void Explosion::draw(BITMAP* target, int cameraX, int cameraY) {
    circlefill(target, getX() - cameraX, getY() - cameraY, radius, makecol(255, 255, 255));
}

}  // namespace Grevan

#include "actors/Explosion.h"

#include "actors/Player.h"
#include "core/Game.h"

namespace Grevan {

Explosion::Explosion(Player* thrower, int x, int y) : owner(thrower) {
    setX(x);
    setY(y);
    show();
}

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
    radius += kGrowth;
    life--;
    if (life < 1) {
        die();
    }
}

void Explosion::draw(BITMAP* target, int cameraX, int cameraY) {
    circlefill(target, getX() - cameraX, getY() - cameraY, radius, makecol(255, 255, 255));
}

}  // namespace Grevan

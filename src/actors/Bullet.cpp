#include "actors/Bullet.h"

#include <memory>

#include "actors/FireStar.h"
#include "actors/LaunchVelocity.h"
#include "actors/Player.h"
#include "core/Game.h"
#include "world/BlockSystem.h"
#include "world/ObjectSystem.h"

namespace Grevan {

Bullet::Bullet(Player* shooter, int x, int y, int tx, int ty) : endX(tx), endY(ty), owner(shooter) {
    setX(x);
    setY(y);
    // The flight ends on the first obstacle of the line, if any; the shooter's own outline in the
    // block map does not stop it.
    Game::getInstance()->getBlockSystem().checkLineCollision(owner->getColor(), x, y, tx, ty, &endX, &endY);
    show();
    setVelocity(launchVelocity(x, y, endX, endY, speed));
}

void Bullet::move() {
    position += velocity;
    // Past the end on either axis the flight ends; the velocity keeps the part of the step that
    // was still needed, which is the direction the blood flies back along.
    if ((velocity.x >= 0.0f && position.x > endX) || (velocity.x < 0.0f && position.x < endX)) {
        die();
        velocity.x = static_cast<float>(endX) - (position.x - velocity.x);
    }
    if ((velocity.y >= 0.0f && position.y > endY) || (velocity.y < 0.0f && position.y < endY)) {
        die();
        velocity.y = static_cast<float>(endY) - (position.y - velocity.y);
    }
    if (isDead()) {
        arrive();
    }
}

void Bullet::arrive() {
    setX(endX);
    setY(endY);
    Game* game = Game::getInstance();
    game->getObjectSystem().addObject(std::make_unique<FireStar>(endX, endY));
    // Whoever stands on the end point now is hit, not whoever stood there at the shot.
    Player* victim = dynamic_cast<Player*>(game->getBlockSystem().getObjectByPosition(endX, endY));
    if (victim && victim != owner) {
        victim->hitBy(owner, endX, endY, velocity.normalized());
    }
}

void Bullet::draw(BITMAP* target, int cameraX, int cameraY) {
    int x1 = static_cast<int>(position.x - velocity.x - static_cast<float>(cameraX));
    int y1 = static_cast<int>(position.y - velocity.y - static_cast<float>(cameraY));
    int x2 = static_cast<int>(position.x - static_cast<float>(cameraX));
    int y2 = static_cast<int>(position.y - static_cast<float>(cameraY));
    line(target, x1, y1, x2, y2, makecol(255, 255, 255));
}

}  // namespace Grevan

#include "actors/GrenadeThrown.h"

#include <memory>

#include "actors/Explosion.h"
#include "actors/LaunchVelocity.h"
#include "actors/Player.h"
#include "core/Game.h"
#include "world/ObjectSystem.h"

namespace Grevan {

GrenadeThrown::GrenadeThrown(Player* thrower, int x, int y, int tx, int ty, int)
    : owner(thrower), thrownAt(time(nullptr)) {
    setBouncy(true);
    setX(x);
    setY(y);
    show();
    setVelocity(launchVelocity(x, y, tx, ty, static_cast<float>(speed)));
}

void GrenadeThrown::move() {
    RealBody::move();
    if (soundDelay > 0) {
        soundDelay--;
    }
    if (time(nullptr) - thrownAt >= fuseSeconds) {
        Game* game = Game::getInstance();
        game->getObjectSystem().addObject(std::make_unique<Explosion>(owner, getX(), getY()));
        game->getSoundSystem().playSound("grenade_explode");
        die();
    }
}

bool GrenadeThrown::collide(Object* other) {
    // The grenade leaves the thrower's hand, and passes any player of the same colour.
    Player* player = dynamic_cast<Player*>(other);
    if (player && owner && player->getColor() == owner->getColor()) {
        return false;
    }
    return RealBody::collide(other);
}

void GrenadeThrown::handleCollision(int side, Object* other) {
    RealBody::handleCollision(side, other);
    if (side == SIDE_BOTTOM && !dynamic_cast<Player*>(other) && soundDelay < 1) {
        Game::getInstance()->getSoundSystem().playSound("grenade_hitground");
        soundDelay = kSoundDelay;
    }
}

void GrenadeThrown::bomb() {
    fuseSeconds = 0;
}

void GrenadeThrown::draw(BITMAP* target, int cameraX, int cameraY) {
    circlefill(target, getX() - cameraX, getY() - cameraY, kRadius, makecol(0, 0, 0));
}

}  // namespace Grevan

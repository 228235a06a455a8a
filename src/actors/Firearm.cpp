#include "actors/Firearm.h"

#include <memory>

#include "actors/Bullet.h"
#include "actors/Player.h"
#include "core/Game.h"
#include "world/ObjectSystem.h"

namespace Grevan {

bool Firearm::fire(int x, int y) {
    if (!Weapon::fire(x, y)) {
        return false;
    }
    Game* game = Game::getInstance();
    Player* mainPlayer = game->getMainPlayer();
    // Only the main player's own shots kick the sight.
    if (mainPlayer && mainPlayer->getCurrentWeapon() == this) {
        game->getAimSystem().jump(kind.recoil);
    }
    int muzzleX = 0;
    int muzzleY = 0;
    muzzlePoint(x, y, &muzzleX, &muzzleY);
    game->getObjectSystem().addObject(std::make_unique<Bullet>(owner, muzzleX, muzzleY, x, y));
    game->getSoundSystem().playSound(kind.shotSound);
    return true;
}

void Firearm::reload() {
    if (reloading) {
        return;
    }
    Game::getInstance()->getSoundSystem().playSound(kind.reloadSound);
    Weapon::reload();
}

}  // namespace Grevan

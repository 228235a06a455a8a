#include "actors/Grenade.h"

#include <memory>

#include "actors/GrenadeThrown.h"
#include "core/Game.h"
#include "world/ObjectSystem.h"

namespace Grevan {

Grenade::Grenade(Player* holder) : Weapon(holder, WeaponKind::kGrenade) {}

bool Grenade::fire(int x, int y) {
    if (!Weapon::fire(x, y)) {
        return false;
    }
    int muzzleX = 0;
    int muzzleY = 0;
    muzzlePoint(x, y, &muzzleX, &muzzleY);
    Game::getInstance()->getObjectSystem().addObject(
        std::make_unique<GrenadeThrown>(owner, muzzleX, muzzleY, x, y, 0));
    return true;
}

}  // namespace Grevan

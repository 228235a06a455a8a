// Host functions: weapons and orders to a player.

#include <memory>

#include "actors/Player.h"
#include "actors/Weapon.h"
#include "actors/WeaponSlot.h"
#include "scripting/HostAccess.h"
#include "scripting/HostArguments.h"
#include "scripting/HostFunctions.h"

namespace Grevan {

// addPlayerWeapon(player, slot, rounds): an empty slot gets its weapon first, so a second call
// for the same slot only adds rounds. Slot 0 and numbers that are no slot's have no weapon to
// give: nothing happens.
void addPlayerWeapon(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_ADD_PLAYER_WEAPON);
    const WeaponSlot* slot = WeaponSlot::numbered(a.integer(2));
    if (!slot || !slot->makeWeapon) {
        return;
    }
    withPlayer(a.integer(1), [&](Player& p) {
        Weapon* w = p.getWeapon(slot->number);
        if (!w) {
            std::unique_ptr<Weapon> made = slot->makeWeapon(&p);
            w = made.get();
            p.setWeapon(slot->number, std::move(made));
        }
        w->addBullets(a.integer(3));
    });
}

void switchWeapon(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SWITCH_WEAPON);
    withPlayer(a.integer(1), [&](Player& p) { p.setEquipment(a.integer(2)); });
}

void playerDoAim(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_PLAYER_DO_AIM);
    withPlayer(a.integer(1), [&](Player& p) { p.aim(a.integer(2), a.integer(3)); });
}

// The weapon in hand fires at once, whatever the player is doing.
void playerDoFire(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_PLAYER_DO_FIRE);
    withPlayer(a.integer(1), [&](Player& p) {
        if (Weapon* w = p.getCurrentWeapon()) {
            w->fire(a.integer(2), a.integer(3));
        }
    });
}

// Walks to x; y is carried with the order but not used.
void playerDoMove(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_PLAYER_DO_MOVE);
    withPlayer(a.integer(1), [&](Player& p) {
        PlayerAction order;
        order.type = ACTION_MOVE_TO;
        order.x = a.integer(2);
        order.y = a.integer(3);
        p.setAction(order);
    });
}

void playerDoStop(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_PLAYER_DO_STOP);
    withPlayer(a.integer(1), [](Player& p) {
        p.stopAction();
        p.stopMoving();
        p.stop();
    });
}

// Returns when the player's scripted order has ended. An id that is not a player's waits until
// the game ends: a script that waits for nobody has lost its way, and the player can still quit.
void waitForPlayerAction(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_WAIT_FOR_PLAYER_ACTION);
    const int id = a.integer(1);
    waitWhile([id] {
        GameLockGuard guard;
        Player* p = findPlayer(id);
        return !p || p->isPlayerActionOn();
    });
}

}  // namespace Grevan

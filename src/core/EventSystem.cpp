#include "core/EventSystem.h"

#include <algorithm>
#include <cstdio>

#include "actors/Player.h"
#include "actors/Weapon.h"
#include "actors/WeaponSlot.h"
#include "core/Game.h"

namespace Grevan {

void EventSystem::addEvent(std::unique_ptr<Event> e) {
    events.push_back(std::move(e));
}

void EventSystem::handleEvents() {
    if (events.empty()) {
        return;
    }
    // Only the newest event of a frame counts; the older ones go with the queue.
    const bool motionDropped =
        std::any_of(events.begin(), events.end() - 1,
                    [](const std::unique_ptr<Event>& older) { return older->action == ACTION_MOUSE_MOVE; });
    std::unique_ptr<Event> e = std::move(events.back());
    events.clear();
    Game* game = Game::getInstance();
    // A click, pressed or released, closes a speech bubble and is not fired.
    if (game->getDialog().isVisible()) {
        if (e->action == ACTION_FIRE) {
            game->getDialog().hide();
        }
        return;
    }
    if (!game->canControl()) {
        return;
    }
    if (Player* p = game->getPlayer(e->playerId)) {
        act(*e, p);
        // The sight must not stay where the dropped motion left it: the mouse is still there.
        if (motionDropped) {
            game->getInputSystem().repeatMouse();
        }
    }
}

void EventSystem::act(const Event& e, Player* p) {
    Game* game = Game::getInstance();
    MapSystem& map = game->getMapSystem();
    AimSystem& sight = game->getAimSystem();
    switch (e.action) {
        case ACTION_FIRE:
            if (e.pressed) {
                p->fire(sight.getX() + map.getClientX(), sight.getY() + map.getClientY());
            } else {
                p->holdFire();
            }
            break;
        case ACTION_JUMP:
            p->jump(e.pressed);
            break;
        case ACTION_MOVE_LEFT:
            p->moveLeft(e.pressed);
            break;
        case ACTION_MOVE_RIGHT:
            p->moveRight(e.pressed);
            break;
        case ACTION_RELOAD:
            // On the press and on the release alike.
            if (Weapon* w = p->getCurrentWeapon()) {
                w->reload();
            }
            break;
        case ACTION_SLOT_1:
        case ACTION_SLOT_2:
        case ACTION_SLOT_3:
        case ACTION_SLOT_4:
            p->setEquipment(WeaponSlot::selectedBy(e.action));
            break;
        case ACTION_MOUSE_MOVE:
            aim(p, e.data);
            break;
        case ACTION_MOUSE_RIGHT:
        case ACTION_KEY_S:
        case ACTION_KEY_SHIFT:
        case ACTION_KEY_Q:
            break;
        default:
            printf("Unknown action %d\n", static_cast<int>(e.action));
            fflush(stdout);
            break;
    }
}

// The sight follows the mouse, the player aims at the world point under it, and a held trigger
// follows the sight.
void EventSystem::aim(Player* p, int data) {
    Game* game = Game::getInstance();
    AimSystem& sight = game->getAimSystem();
    sight.setX(data >> 16);
    sight.setY(data & 0xFFFF);
    int worldX = sight.getX() + game->getMapSystem().getClientX();
    int worldY = sight.getY() + game->getMapSystem().getClientY();
    p->aim(worldX, worldY);
    if (p->isFiring()) {
        p->fire(worldX, worldY);
    }
}

}  // namespace Grevan

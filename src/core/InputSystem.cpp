#include "core/InputSystem.h"

#include <allegro.h>

#include <memory>

#include "core/Game.h"

namespace Grevan {

namespace {

// Allegro calls this on its own input thread, at any time: ending the game is an atomic store,
// and the main loop ends after the frame in hand, as for Escape.
void endGameOnCloseButton() {
    if (Game* game = Game::getInstance()) {
        game->endGame();
    }
}

}  // namespace

void InputSystem::initialize() {
    install_keyboard();
    install_mouse();
    set_close_button_callback(endGameOnCloseButton);
    for (bool& state : keyStates) {
        state = false;
    }
}

void InputSystem::doInput() {
    // Allegro's mouse driver updates these at any time: each is read once.
    const int x = mouse_x;
    const int y = mouse_y;
    const int buttons = mouse_b;
    if (x != lastMouseX || y != lastMouseY || mouseRepeated) {
        send(ACTION_MOUSE_MOVE, false, (x << 16) | y);
        lastMouseX = x;
        lastMouseY = y;
        mouseRepeated = false;
    }
    follow(buttons & 1, ACTION_FIRE);
    follow(buttons & 2, ACTION_MOUSE_RIGHT);
    follow(key[KEY_A], ACTION_MOVE_LEFT);
    // A is tested twice; the second test can find no change.
    follow(key[KEY_A], ACTION_MOVE_LEFT);
    follow(key[KEY_D], ACTION_MOVE_RIGHT);
    follow(key[KEY_W], ACTION_JUMP);
    follow(key[KEY_S], ACTION_KEY_S);
    follow(key[KEY_R], ACTION_RELOAD);
    follow(key[KEY_LSHIFT], ACTION_KEY_SHIFT);
    follow(key[KEY_1], ACTION_SLOT_1);
    follow(key[KEY_2], ACTION_SLOT_2);
    follow(key[KEY_3], ACTION_SLOT_3);
    follow(key[KEY_4], ACTION_SLOT_4);
    follow(key[KEY_Q], ACTION_KEY_Q);
    follow(key[KEY_B], ACTION_KEY_B);
    follow(key[KEY_M], ACTION_KEY_M);
}

void InputSystem::pressKey(EventAction a) {
    if (!keyStates[a]) {
        send(a, true, 0);
        keyStates[a] = true;
    }
}

void InputSystem::freeKey(EventAction a) {
    if (keyStates[a]) {
        send(a, false, 0);
        keyStates[a] = false;
    }
}

void InputSystem::send(EventAction a, bool pressed, int data) {
    auto e = std::make_unique<Event>();
    e->action = a;
    e->pressed = pressed;
    e->data = data;
    Game::getInstance()->getClientNetwork().sendEvent(std::move(e));
}

}  // namespace Grevan

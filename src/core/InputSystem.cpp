#include "core/InputSystem.h"

#include <allegro.h>

namespace Grevan {

void InputSystem::initialize() {
    install_keyboard();
    install_mouse();
    for (bool& state : keyStates) {
        state = false;
    }
}

}  // namespace Grevan

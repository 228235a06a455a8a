#pragma once

namespace Grevan {

// Keyboard and mouse. Input reaches the game as queued events; Escape alone is read directly
// by the main loop.
class InputSystem {
  public:
    static const int kKeyStateCount = 30;

    InputSystem() = default;

    // Installs Allegro's keyboard and mouse drivers; needs a display.
    void initialize();

  private:
    int lastMouseX = 0;
    int lastMouseY = 0;
    bool keyStates[kKeyStateCount] = {};
};

}  // namespace Grevan

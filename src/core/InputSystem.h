#pragma once

#include "core/Event.h"

namespace Grevan {

// Keyboard and mouse. Once a frame the state of the mouse and of a fixed set of keys is
// compared with what was last reported, and every change is sent as an event to the main
// player: only edges travel, never "held". Escape alone is read directly by the main loop; the
// window's close button ends the game as Escape does.
class InputSystem {
  public:
    static const int kKeyStateCount = 30;

    InputSystem() = default;

    // Installs Allegro's keyboard and mouse drivers and the close button's handler; needs a
    // display.
    void initialize();
    // Reads Allegro's mouse and key state; on the main thread, outside the game lock.
    void doInput();
    // Sends a press of the action unless it is already down as last reported.
    void pressKey(EventAction a);
    // Sends a release of the action if it is down as last reported.
    void freeKey(EventAction a);
    // Has the next doInput report the mouse position even if it has not moved: the motion last
    // reported was dropped for a newer event of its frame, and the sight has not followed it.
    void repeatMouse() { mouseRepeated = true; }

  private:
    void follow(bool down, EventAction a) { down ? pressKey(a) : freeKey(a); }
    void send(EventAction a, bool pressed, int data);

    // Not set by initialize: the first frame normally reports the mouse position as a motion.
    int lastMouseX = 0;
    int lastMouseY = 0;
    bool mouseRepeated = false;
    // Indexed by action; kept while control is locked, so a release held across the lock is sent.
    bool keyStates[kKeyStateCount] = {};
};

}  // namespace Grevan

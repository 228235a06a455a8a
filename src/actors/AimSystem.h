#pragma once

#include <allegro.h>

#include <memory>

#include "actors/FrontSight.h"

namespace Grevan {

// The owner of the mouse sight. The sight follows the mouse; when a kick sets it drifting, the
// mouse pointer follows the sight (while it is inside the view and the main player lives), so a
// kick really moves the aim.
class AimSystem {
  public:
    AimSystem();

    int getStyle() const { return style; }
    void setStyle(int s) { style = s; }
    // The sight's position, in screen pixels. Setting it puts the sight where the mouse pointer
    // is: the input calls it with the mouse position.
    int getX() const { return sight->getX(); }
    int getY() const { return sight->getY(); }
    void setX(int x) {
        sight->setX(x);
        pointerX = x;
    }
    void setY(int y) {
        sight->setY(y);
        pointerY = y;
    }

    void move();
    void draw(BITMAP* target) { sight->draw(target); }
    void jump(int strength) { sight->jump(strength); }

    // Whether move puts the mouse pointer on the sight: only once the sight has moved away from
    // the pointer by itself, strictly inside the view, with a live main player. Putting the
    // pointer on a sight at rest would undo the hand's motion since the frame read the mouse, and
    // would keep Allegro's X11 mouse driver in its relative mode, in which the pointer is
    // re-centred and motion is dropped.
    bool steersMouse() const;
    FrontSight& getSight() { return *sight; }

  private:
    int style = 0;  // stored and reported only
    std::unique_ptr<FrontSight> sight;
    // Where the mouse pointer is, as far as the sight knows: where the input put the sight, or
    // where the sight last put the pointer.
    int pointerX = 0;
    int pointerY = 0;
};

}  // namespace Grevan

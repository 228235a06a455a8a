#pragma once

#include <allegro.h>

#include <memory>

#include "actors/FrontSight.h"

namespace Grevan {

// The owner of the mouse sight. While the sight is inside the view and the main player lives,
// the mouse pointer is moved to it every frame, so a kick of the sight really moves the aim.
class AimSystem {
  public:
    AimSystem();

    int getStyle() const { return style; }
    void setStyle(int s) { style = s; }
    // The sight's position, in screen pixels.
    int getX() const { return sight->getX(); }
    int getY() const { return sight->getY(); }
    void setX(int x) { sight->setX(x); }
    void setY(int y) { sight->setY(y); }

    void move();
    void draw(BITMAP* target) { sight->draw(target); }
    void jump(int strength) { sight->jump(strength); }

    // Whether move puts the mouse pointer on the sight: strictly inside the view, with a live
    // main player.
    bool steersMouse() const;
    FrontSight& getSight() { return *sight; }

  private:
    int style = 0;  // stored and reported only
    std::unique_ptr<FrontSight> sight;
};

}  // namespace Grevan

#pragma once

#include "world/RealBody.h"

namespace Grevan {

// The mouse cross-hair, in screen pixels. A light rigid body so that a shot can kick it: the
// kick sets it drifting and widens its four arms (the divergence); a random brake then slows
// the drift and the arms close again. It is never put into the object registry.
class FrontSight : public RealBody {
  public:
    static const int kMinDivergence = 5;   // pixels between the centre and each arm
    static const int kMaxDivergence = 50;  // pixels
    static const int kArmLength = 6;       // pixels

    FrontSight() = default;

    void move() override;
    using RealBody::draw;
    // Draws the four arms around the position; no camera, the sight lives on the screen.
    virtual void draw(BITMAP* target);
    // A recoil kick of up to strength pixels per frame on each axis.
    virtual void jump(int strength);

    int getDivergence() const { return divergence; }
    void setDivergence(int d) { divergence = d; }
    int getTrembling() const { return trembling; }
    void setTrembling(int t) { trembling = t; }

  private:
    int trembling = 0;
    int divergence = kMinDivergence;
    int minDivergence = kMinDivergence;
    int maxDivergence = kMaxDivergence;
};

}  // namespace Grevan

#include "actors/FrontSight.h"

#include <cassert>
#include <cmath>
#include <cstdlib>

namespace Grevan {

namespace {
const float kRestingSpeed = 0.1f;  // pixels per frame; slower drifts keep their last brake
}

void FrontSight::move() {
    if (std::fabs(velocity.x) > kRestingSpeed || std::fabs(velocity.y) > kRestingSpeed) {
        // A random brake of 0 to 99 percent of the velocity, drawn x first.
        int brakeX = rand() % 100;
        int brakeY = rand() % 100;
        acceleration = Vector(brakeX * -velocity.x / 100, brakeY * -velocity.y / 100);
    }
    // From an even divergence the arms close to 4, one below the minimum; that is kept.
    if (divergence > minDivergence) {
        divergence -= 2;
    }
    // Plain motion: no gravity and no collisions for the sight.
    Object::move();
}

void FrontSight::jump(int strength) {
    assert(strength >= 0);
    int first = rand();
    int second = rand();
    int span = 2 * strength + 1;
    addMomentum(
        Vector(static_cast<float>(second % span - strength), static_cast<float>(first % span - strength)));
    // Tested before the kick is added, so one kick may carry the arms past the maximum.
    if (divergence < maxDivergence) {
        divergence += strength;
    }
}

void FrontSight::draw(BITMAP* target) {
    int x = getX();
    int y = getY();
    int d = divergence;
    int green = makecol(0, 255, 0);
    line(target, x - d - kArmLength, y, x - d, y, green);
    line(target, x + d, y, x + d + kArmLength, y, green);
    line(target, x, y - d - kArmLength, x, y - d, green);
    line(target, x, y + d, x, y + d + kArmLength, green);
}

}  // namespace Grevan

#include "actors/Blood.h"

#include <cstdlib>

#include "actors/Player.h"

namespace Grevan {

Blood::Blood(int x, int y, const Vector& impulse)
    : radius(rand() % 5 + 1), color(makecol(255, 0, 0)), bornAt(time(nullptr)) {
    setX(x);
    setY(y);
    show();
    // Per axis a speed of 0 to -4 along the impulse, zero half of the time: the droplet never
    // flies on in the direction of the hit. Two draws an axis, x first.
    int backX = -(rand() % spread);
    int keepX = rand() % 2;
    int backY = -(rand() % spread);
    int keepY = rand() % 2;
    setVelocity(
        Vector(static_cast<float>(keepX * backX) * impulse.x, static_cast<float>(keepY * backY) * impulse.y));
}

void Blood::move() {
    RealBody::move();
    if (time(nullptr) - bornAt >= lifeSeconds) {
        die();
    }
}

bool Blood::collide(Object* other) {
    if (dynamic_cast<Player*>(other)) {
        return false;
    }
    return RealBody::collide(other);
}

void Blood::draw(BITMAP* target, int cameraX, int cameraY) {
    circlefill(target, getX() - cameraX, getY() - cameraY, radius, color);
}

}  // namespace Grevan

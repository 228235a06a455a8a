#include "actors/LaunchVelocity.h"

#include <cmath>

namespace Grevan {

Vector launchVelocity(int x, int y, int tx, int ty, float speed) {
    int dx = tx - x;
    int dy = ty - y;
    if (dy == 0) {
        return Vector(tx > x ? speed : -speed, 0.0f);
    }
    if (dx == 0) {
        return Vector(0.0f, ty > y ? speed : -speed);
    }
    float slope = static_cast<float>(dy) / static_cast<float>(dx);
    float vx = std::sqrt(speed * speed / (slope * slope + 1.0f));
    if (dx < 0) {
        vx = -vx;
    }
    return Vector(vx, vx * slope);
}

}  // namespace Grevan

#pragma once

#include "world/Vector.h"

namespace Grevan {

// The velocity of `speed` pixels per frame from (x, y) towards (tx, ty), in single precision.
// A shot of zero length points left.
Vector launchVelocity(int x, int y, int tx, int ty, float speed);

}  // namespace Grevan

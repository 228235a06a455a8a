#include "actors/FireStar.h"

namespace Grevan {

void FireStar::draw(BITMAP* target, int cameraX, int cameraY) {
    circle(target, getX() - cameraX, getY() - cameraY, radius, makecol(255, 255, 0));
}

}  // namespace Grevan

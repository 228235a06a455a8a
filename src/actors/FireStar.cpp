#include "actors/FireStar.h"

namespace Grevan {

FireStar::FireStar(int x, int y) {
    setX(x);
    setY(y);
    show();
}

void FireStar::move() {
    radius++;
    life--;
    if (life < 1) {
        die();
    }
}

void FireStar::draw(BITMAP* target, int cameraX, int cameraY) {
    circle(target, getX() - cameraX, getY() - cameraY, radius, makecol(255, 255, 0));
}

}  // namespace Grevan

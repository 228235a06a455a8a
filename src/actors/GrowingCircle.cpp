#include "actors/GrowingCircle.h"

namespace Grevan {

GrowingCircle::GrowingCircle(int x, int y, int growthPerFrame) : growth(growthPerFrame) {
    setX(x);
    setY(y);
    show();
}

void GrowingCircle::move() {
    radius += growth;
    life--;
    if (life < 1) {
        die();
    }
}

}  // namespace Grevan

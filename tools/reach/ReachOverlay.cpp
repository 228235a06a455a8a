#include "ReachOverlay.h"

#include <cmath>

namespace {

const int kBarThickness = 4;  // picture pixels, up from the surface's row
const int kCrossArm = 7;      // picture pixels

int onPicture(int level, int camera, float zoom) {
    return static_cast<int>(std::floor(static_cast<float>(level - camera) * zoom));
}

}  // namespace

// Blue and red stand out against the grass, stone and wood the pieces are made of.
int reachableColour() {
    return makecol(30, 90, 255);
}

int unreachableColour() {
    return makecol(240, 40, 40);
}

int startColour() {
    return makecol(255, 230, 0);
}

int pathColour() {
    return makecol(255, 140, 0);
}

void drawReachOverlay(BITMAP* target, const ReachResult& result, int cameraX, int cameraY, float zoom,
                      const std::vector<ReachPoint>& path) {
    for (const ReachSpanResult& found : result.spans) {
        const int left = onPicture(found.span.left, cameraX, zoom);
        // The bar ends where the next pixel of the level starts, so that neighbours join.
        const int right = std::max(left, onPicture(found.span.right + 1, cameraX, zoom) - 1);
        const int y = onPicture(found.span.y, cameraY, zoom);
        rectfill(target, left, y - kBarThickness + 1, right, y,
                 found.reachable ? reachableColour() : unreachableColour());
    }
    for (std::size_t i = 1; i < path.size(); ++i) {
        line(target, onPicture(path[i - 1].x, cameraX, zoom), onPicture(path[i - 1].y, cameraY, zoom),
             onPicture(path[i].x, cameraX, zoom), onPicture(path[i].y, cameraY, zoom), pathColour());
    }
    const int x = onPicture(result.start.x, cameraX, zoom);
    const int y = onPicture(result.start.y, cameraY, zoom);
    for (int thick = -1; thick <= 1; ++thick) {
        line(target, x - kCrossArm, y + thick, x + kCrossArm, y + thick, startColour());
        line(target, x + thick, y - kCrossArm, x + thick, y + kCrossArm, startColour());
    }
}

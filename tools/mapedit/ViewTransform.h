#pragma once

// How the level view maps level pixels to its own: the level point at the view's top-left corner,
// and the zoom as a power of two (0 one to one, 1 one half, 2 one quarter). Wide arithmetic, as
// pieces may lie 2^30 pixels away either way.
struct ViewTransform {
    long long cameraX = 0;  // level pixels
    long long cameraY = 0;
    int zoomShift = 0;

    int toViewX(long long levelX) const { return static_cast<int>(floorShift(levelX - cameraX)); }
    int toViewY(long long levelY) const { return static_cast<int>(floorShift(levelY - cameraY)); }
    int toViewLength(long long length) const { return static_cast<int>(length >> zoomShift); }
    long long toLevelX(int viewX) const { return cameraX + (static_cast<long long>(viewX) << zoomShift); }
    long long toLevelY(int viewY) const { return cameraY + (static_cast<long long>(viewY) << zoomShift); }

  private:
    // Rounds toward minus infinity, so that a piece half a view pixel left of the camera is not
    // drawn on the camera's column.
    long long floorShift(long long value) const {
        return value >= 0 ? value >> zoomShift : -((-value + (1LL << zoomShift) - 1) >> zoomShift);
    }
};

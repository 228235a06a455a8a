#pragma once

// An integer rectangle in pixels. Edges are inclusive, so a rectangle whose right is one past
// an image's last column overlaps a neighbour that merely touches it by one pixel.
struct Rect {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    bool operator==(const Rect& other) const {
        return left == other.left && right == other.right && top == other.top && bottom == other.bottom;
    }
    bool operator!=(const Rect& other) const { return !(*this == other); }
    // Edges inclusive: rectangles that merely touch overlap by one pixel.
    bool overlaps(const Rect& other) const {
        return other.left <= right && other.top <= bottom && other.right >= left && other.bottom >= top;
    }
};

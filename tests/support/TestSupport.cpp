#include "support/TestSupport.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace GrevanTest {

Grevan::RealBody* makeBody(int x, int y, int width, int height) {
    Grevan::RealBody* body = new Grevan::RealBody();
    body->setX(x);
    body->setY(y);
    body->setWidth(width);
    body->setHeight(height);
    return body;
}

testing::AssertionResult isNear(const Vector& v, const Vector& expected) {
    if (std::fabs(v.x - expected.x) < 1e-4f && std::fabs(v.y - expected.y) < 1e-4f) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "(" << v.x << ", " << v.y << ") is not (" << expected.x << ", " << expected.y << ")";
}

Cells cellsHolding(const Grevan::BlockSystem& blocks, Grevan::Object* o) {
    Cells found;
    for (unsigned row = 0; row < blocks.getRows(); ++row) {
        for (unsigned column = 0; column < blocks.getColumns(); ++column) {
            const std::vector<Grevan::Object*>& cell = blocks.getCell(row, column);
            if (std::find(cell.begin(), cell.end(), o) != cell.end()) {
                found.emplace_back(row, column);
            }
        }
    }
    return found;
}

int pixelsOf(BITMAP* b, int colour, int left, int top, int right, int bottom) {
    int count = 0;
    for (int y = std::max(top, 0); y <= std::min(bottom, b->h - 1); y++) {
        for (int x = std::max(left, 0); x <= std::min(right, b->w - 1); x++) {
            count += getpixel(b, x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

int blendedOver(int background, int colour, int alpha) {
    BITMAP* under = create_bitmap(1, 1);
    BITMAP* over = create_bitmap(1, 1);
    clear_to_color(under, background);
    clear_to_color(over, colour);
    set_trans_blender(0, 0, 0, alpha);
    draw_trans_sprite(under, over, 0, 0);
    int result = getpixel(under, 0, 0);
    destroy_bitmap(over);
    destroy_bitmap(under);
    return result;
}

int differingPixels(BITMAP* a, BITMAP* b) {
    int count = 0;
    for (int y = 0; y < a->h; y++) {
        for (int x = 0; x < a->w; x++) {
            count += getpixel(a, x, y) != getpixel(b, x, y) ? 1 : 0;
        }
    }
    return count;
}

std::string takeEvent(Grevan::ScriptSystem& scripts) {
    std::unique_ptr<Grevan::ScriptEvent> e = scripts.takeEvent();
    if (!e) {
        return "none";
    }
    return e->name + " " + e->text + " " + std::to_string(e->arg1) + " " + std::to_string(e->arg2) + " " +
           std::to_string(e->arg3);
}

}  // namespace GrevanTest

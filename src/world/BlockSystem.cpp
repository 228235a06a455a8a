#include "world/BlockSystem.h"
#include "actors/Player.h"

#include <algorithm>
#include <cassert>

#include "world/RealBody.h"

namespace Grevan {

namespace {
thread_local LineProbe* activeProbe = nullptr;
}

void checkPoint(BITMAP* map, int x, int y, int) {
    LineProbe* probe = activeProbe;
    if (probe->found) {
        return;
    }
    int pixel = getpixel(map, x, y);
    if (pixel == 0 || pixel == probe->ignoredColour) {
        return;
    }
    probe->found = true;
    probe->x = x;
    probe->y = y;
}

void BlockSystem::initialize(int width, int height) {
    initializeGrid(width, height);
    // A map file may give a level no area; it then has the spare cells alone and no outlines.
    if (width > 0 && height > 0) {
        blockMap = create_bitmap(width, height);
    }
    if (blockMap) {
        clear_bitmap(blockMap);
    }
}

void BlockSystem::initializeGrid(int width, int height) {
    cleanup();
    columns = static_cast<unsigned>(std::max(width, 0) / cellWidth) + kSpareCells;
    rows = static_cast<unsigned>(std::max(height, 0) / cellHeight) + kSpareCells;
    cells.resize(static_cast<size_t>(rows) * columns);
    defaultColour = makecol(255, 255, 255);
    iterating = false;
}

void BlockSystem::cleanup() {
    cells.clear();
    rows = 0;
    columns = 0;
    if (blockMap) {
        destroy_bitmap(blockMap);
        blockMap = nullptr;
    }
}

template <typename Visit>
void BlockSystem::forEachCell(int x1, int y1, int x2, int y2, Visit visit) {
    const unsigned lastRow = static_cast<unsigned>(y2 / cellHeight);
    const unsigned lastColumn = static_cast<unsigned>(x2 / cellWidth);
    for (unsigned row = static_cast<unsigned>(y1 / cellHeight); row <= lastRow && row < rows; ++row) {
        for (unsigned column = static_cast<unsigned>(x1 / cellWidth);
             column <= lastColumn && column < columns; ++column) {
            visit(cells[static_cast<size_t>(row) * columns + column]);
        }
    }
}

const std::vector<Object*>& BlockSystem::getCell(unsigned row, unsigned column) const {
    assert(row < rows && column < columns);
    return cells[static_cast<size_t>(row) * columns + column];
}

int BlockSystem::outlineColour(Object* o) const {
    // A player's own colour lets its own line tests pass through its outline.
    if (Player* player = o->asPlayer()) {
        return player->getColor();
    }
    return defaultColour;
}

void BlockSystem::addObject(Object* o) {
    const Rect& r = *o->getRectangle();
    addObject(o, r.left, r.top, r.right, r.bottom);
}

void BlockSystem::addObject(Object* o, int x1, int y1, int x2, int y2) {
    if (!o->isCollidable()) {
        return;
    }
    if (iterating) {
        allegro_message("You should not addObject while iterating.");
        return;
    }
    forEachCell(x1, y1, x2, y2, [o](std::vector<Object*>& cell) { cell.push_back(o); });
    outline(x1, y1, x2, y2, outlineColour(o));
}

void BlockSystem::removeObject(Object* o) {
    const Rect& r = *o->getRectangle();
    removeObject(o, r.left, r.top, r.right, r.bottom);
}

void BlockSystem::removeObject(Object* o, int x1, int y1, int x2, int y2) {
    if (!o->isCollidable()) {
        return;
    }
    if (iterating) {
        allegro_message("You should not removeObject while iterating.");
        return;
    }
    forEachCell(x1, y1, x2, y2, [o](std::vector<Object*>& cell) {
        auto entry = std::find(cell.begin(), cell.end(), o);
        if (entry != cell.end()) {
            cell.erase(entry);
        }
    });
    outline(x1, y1, x2, y2, makecol(0, 0, 0));
}

void BlockSystem::outline(int x1, int y1, int x2, int y2, int colour) {
    // A point-sized body would otherwise leave a dot that stops lines of fire and sight in mid-air
    // (blood flying back from a hit stopped the next shots of a burst), and taking it off would
    // cut a gap into whatever outline it lay on.
    if (blockMap && x2 > x1 && y2 > y1) {
        rect(blockMap, x1, y1, x2 - 1, y2 - 1, colour);
    }
}

bool BlockSystem::checkCollision(Object* o) {
    const Rect& r = *o->getRectangle();
    return checkCollision(o, r.left, r.top, r.right, r.bottom);
}

bool BlockSystem::checkCollision(Object* o, int x1, int y1, int x2, int y2) {
    iterating = true;
    bool collided = false;
    // A pair whose rectangles do not overlap cannot collide, and the only thing collide does for
    // one is to set a body free of its board; such pairs are decided here, without the virtual
    // call. The body's board is read afresh for every candidate, since a landing changes it.
    RealBody* body = o->asBody();
    Rect own = *o->getRectangle();
    forEachCell(x1, y1, x2, y2, [&](std::vector<Object*>& cell) {
        for (Object* p : cell) {
            if (p == o || (!own.overlaps(*p->getRectangle()) && !(body && body->getBoard() == p))) {
                continue;
            }
            if (o->collide(p)) {
                collided = true;
            }
            // Resolving a collision moves o.
            own = *o->getRectangle();
        }
    });
    iterating = false;
    return collided;
}

Object* BlockSystem::getObjectByPosition(int x, int y) {
    iterating = true;
    Object* found = nullptr;
    const unsigned row = static_cast<unsigned>(y / cellHeight);
    const unsigned column = static_cast<unsigned>(x / cellWidth);
    if (row < rows && column < columns) {
        for (Object* p : cells[static_cast<size_t>(row) * columns + column]) {
            if (p->getX() <= x && x <= p->getX() + p->getWidth() && p->getY() <= y &&
                y <= p->getY() + p->getHeight()) {
                found = p;
                break;
            }
        }
    }
    iterating = false;
    return found;
}

bool BlockSystem::checkLineCollision(int ignoredColour, int x1, int y1, int x2, int y2, int* hitX,
                                     int* hitY) {
    if (!blockMap) {
        return false;
    }
    LineProbe probe;
    probe.ignoredColour = ignoredColour;
    LineProbe* outerProbe = activeProbe;
    activeProbe = &probe;
    do_line(blockMap, x1, y1, x2, y2, 0, checkPoint);
    activeProbe = outerProbe;
    if (!probe.found) {
        return false;
    }
    *hitX = probe.x;
    *hitY = probe.y;
    return true;
}

void BlockSystem::draw(BITMAP* target, int x, int y) {
    if (blockMap) {
        blit(blockMap, target, x, y, 0, 0, target->w, target->h);
    }
}

}  // namespace Grevan

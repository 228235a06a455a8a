#pragma once

#include <allegro.h>

#include <vector>

#include "world/Object.h"

namespace Grevan {

// What a line query is looking for and what it found: the first point of the line whose pixel
// on the block map is neither empty (black) nor the ignored colour.
struct LineProbe {
    bool found = false;
    int x = 0;
    int y = 0;
    int ignoredColour = 0;
};

// The per-point callback of Allegro's do_line for line queries. do_line hands it an int, too
// narrow for a pointer on 64-bit machines, so the probe being filled is published in a
// thread-local slot by checkLineCollision and the int is not used.
void checkPoint(BITMAP* map, int x, int y, int unused);

// Answers collision questions about the level's collidable objects. A grid of 200-pixel cells
// narrows each collision test to the objects that share a cell; a bitmap of the level's size,
// on which every collidable object is outlined, answers point-free line queries.
//
// Cell ranges keep a deliberate quirk at the level's top and left edges: the start index of a
// range is a truncating division compared as an unsigned number, so coordinates from -199 to -1
// fall into the first row or column, while a range starting at -200 or less walks no cell.
class BlockSystem {
  public:
    static const int kCellSize = 200;  // pixels, both ways
    // Two spare rows and columns hold objects that reach beyond the right and bottom edges.
    static const unsigned kSpareCells = 2;

    BlockSystem() = default;
    ~BlockSystem() = default;
    BlockSystem(const BlockSystem&) = delete;
    BlockSystem& operator=(const BlockSystem&) = delete;

    // Forgets every object and makes an empty grid and block map for a level of this size
    // (pixels). The map loader bounds the area, a side of 0 or less counted as one pixel, and with
    // it both the block map and the grid; a level without area gets no block map.
    void initialize(int width, int height);
    // The grid alone, without the block map: for a world that asks no line queries, where
    // outlining every move would be wasted work.
    void initializeGrid(int width, int height);
    // Frees the grid and the block map; must run while Allegro is still up.
    void cleanup();

    // Enters a collidable object in the cells of its rectangle and outlines it on the block map.
    // A rectangle without area (a drop of blood, a thrown grenade) gets no outline.
    void addObject(Object* o);
    void addObject(Object* o, int x1, int y1, int x2, int y2);
    // Takes a collidable object out of the cells of the given rectangle and erases that outline.
    // Where outlines crossed, the survivor keeps black gaps: nothing redraws it.
    void removeObject(Object* o);
    void removeObject(Object* o, int x1, int y1, int x2, int y2);
    // Offers every object sharing a cell with the rectangle to o->collide, once per shared cell,
    // in row, column and insertion order; true when any collision counted.
    bool checkCollision(Object* o);
    bool checkCollision(Object* o, int x1, int y1, int x2, int y2);

    // The first object of the point's own cell whose rectangle holds the point, edges
    // inclusive; null when none.
    Object* getObjectByPosition(int x, int y);
    // Walks the line in Bresenham order and stops at the first pixel that is neither black nor
    // the ignored colour; a point outside the block map reads as -1 and so stops it too.
    bool checkLineCollision(int ignoredColour, int x1, int y1, int x2, int y2, int* hitX, int* hitY);

    BITMAP* getBlockMap() { return blockMap; }
    // A view of the block map for debugging, from (x, y) of the level.
    void draw(BITMAP* target, int x, int y);

    unsigned getRows() const { return rows; }
    unsigned getColumns() const { return columns; }
    // The objects entered in a cell, in insertion order.
    const std::vector<Object*>& getCell(unsigned row, unsigned column) const;

  private:
    template <typename Visit>
    void forEachCell(int x1, int y1, int x2, int y2, Visit visit);
    // The colour an object's outline gets on the block map.
    int outlineColour(Object* o) const;
    // Draws (or, in black, erases) the outline of the rectangle from (x1, y1) to (x2, y2), its
    // right and bottom edges excluded; a rectangle without area has none.
    void outline(int x1, int y1, int x2, int y2, int colour);

    int cellWidth = kCellSize;
    int cellHeight = kCellSize;
    unsigned rows = 0;
    unsigned columns = 0;
    bool iterating = false;
    std::vector<std::vector<Object*>> cells;  // rows x columns, row-major; not owning
    BITMAP* blockMap = nullptr;
    int defaultColour = 0;
};

}  // namespace Grevan

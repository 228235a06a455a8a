#include "world/BlockSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::Object;
using GrevanTest::makeBlock;

namespace {

using Cell = std::pair<unsigned, unsigned>;  // row, column

// Records every object it is offered and reports a collision without moving.
class Recorder : public Object {
  public:
    bool collide(Object* other) override {
        offered.push_back(other);
        return true;
    }
    std::vector<Object*> offered;
};

class BlockSystemTest : public HeadlessGame {
  protected:
    // An object made by the test and freed with it (the block map does not own it), entered.
    Object* added(Object* o) {
        owned.emplace_back(o);
        blocks().addObject(o);
        return o;
    }

    std::vector<Cell> cellsHolding(Object* o) {
        std::vector<Cell> found;
        for (unsigned row = 0; row < blocks().getRows(); ++row) {
            for (unsigned column = 0; column < blocks().getColumns(); ++column) {
                for (Object* entry : blocks().getCell(row, column)) {
                    if (entry == o) {
                        found.emplace_back(row, column);
                    }
                }
            }
        }
        return found;
    }

    int pixel(int x, int y) { return getpixel(blocks().getBlockMap(), x, y); }

    std::vector<std::unique_ptr<Object>> owned;
};

TEST_F(BlockSystemTest, GridHasTwoSpareRowsAndColumns) {
    struct Case {
        int width, height;
        unsigned columns, rows;
    } cases[] = {{1000, 600, 7, 5}, {199, 1, 2, 2}, {401, 399, 4, 3}};
    for (const Case& c : cases) {
        blocks().initialize(c.width, c.height);
        EXPECT_EQ(blocks().getColumns(), c.columns) << c.width;
        EXPECT_EQ(blocks().getRows(), c.rows) << c.height;
        EXPECT_EQ(blocks().getBlockMap()->w, c.width);
    }
}

TEST_F(BlockSystemTest, ObjectIsEnteredInTheCellsOfItsRangeCountedAsUnsigned) {
    struct Case {
        int x, y, width, height;
        std::vector<Cell> cells;
    } cases[] = {
        {-150, 10, 50, 10, {{0, 0}}},  // -199 to -1 divide to column 0
        {-250, 10, 150, 10, {}},       // a start of -200 or less walks nothing
        {10, -200, 10, 10, {{0, 0}}},  // the pixel position of -200 is -199 (half added, truncated)
        {10, -201, 10, 10, {}},
        {195, 0, 10, 10, {{0, 0}, {0, 1}}},
        {1195, 590, 10, 20, {{2, 5}, {2, 6}, {3, 5}, {3, 6}}},  // spare row and column
        {1390, 10, 20, 10, {{0, 6}}},                           // the walk stops at the last column
        {10, 1000, 10, 10, {}},
    };
    blocks().initialize(1000, 600);
    for (const Case& c : cases) {
        Object* o = added(makeBlock(c.x, c.y, c.width, c.height));
        EXPECT_EQ(cellsHolding(o), c.cells) << "object at " << c.x << ", " << c.y;
        blocks().removeObject(o);
        EXPECT_TRUE(cellsHolding(o).empty()) << "object at " << c.x << ", " << c.y;
    }
    EXPECT_TRUE(cellsHolding(added(makeBlock(10, 10, 20, 20, false))).empty()) << "not collidable";
}

TEST_F(BlockSystemTest, NeighboursAreOfferedOncePerSharedCellInRowColumnAndInsertionOrder) {
    blocks().initialize(1000, 600);
    Object* rightCell = added(makeBlock(200, 0, 20, 20));
    Object* bothCells = added(makeBlock(190, 2, 20, 10));
    Object* leftCell = added(makeBlock(186, 0, 10, 10));
    added(makeBlock(600, 400, 10, 10));
    Recorder probe;
    probe.setX(195);
    probe.setWidth(10);
    probe.setHeight(10);
    EXPECT_TRUE(blocks().checkCollision(&probe));
    EXPECT_EQ(probe.offered, (std::vector<Object*>{bothCells, leftCell, rightCell, bothCells}));
}

TEST_F(BlockSystemTest, BlockMapHoldsOutlinesOnlyAndRemovalLeavesGaps) {
    blocks().initialize(400, 300);
    const int white = makecol(255, 255, 255);
    added(makeBlock(10, 10, 20, 10));
    blocks().removeObject(added(makeBlock(20, 5, 20, 20)));
    struct Case {
        int x, y, colour;
    } cases[] = {
        {10, 10, white}, {29, 19, white},  // a's corners
        {15, 15, 0},                       // inside: only the outline is drawn
        {30, 10, 0},     {10, 20, 0},      // one past right and bottom
        {20, 10, 0},     {20, 19, 0},      // where b's outline crossed a's
        {25, 19, white},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(pixel(c.x, c.y), c.colour) << c.x << ", " << c.y;
    }
}

TEST_F(BlockSystemTest, ChangesDuringAQueryAreRefused) {
    class Meddler : public Object {
      public:
        explicit Meddler(Grevan::BlockSystem& blocks) : blocks(blocks) { setWidth(5); }
        bool collide(Object* other) override {
            blocks.addObject(newcomer);
            blocks.removeObject(other);
            return false;
        }
        Grevan::BlockSystem& blocks;
        Object* newcomer = nullptr;
    };
    blocks().initialize(400, 300);
    Object* neighbour = added(makeBlock(0, 0, 20, 20));
    Meddler meddler(blocks());
    meddler.newcomer = makeBlock(100, 100, 10, 10);
    owned.emplace_back(meddler.newcomer);
    EXPECT_EQ(GrevanTest::printedBy([&] { blocks().checkCollision(&meddler); }),
              "You should not addObject while iterating.You should not removeObject while iterating.");
    EXPECT_TRUE(cellsHolding(meddler.newcomer).empty());
    EXPECT_EQ(cellsHolding(neighbour).size(), 1u);
}

TEST_F(BlockSystemTest, PointQuerySearchesOnlyThePointsCellWithInclusiveEdges) {
    blocks().initialize(1000, 600);
    Object* box = added(makeBlock(100, 100, 20, 10));
    Object* acrossBorder = added(makeBlock(190, 10, 20, 10));
    Object* nearOrigin = added(makeBlock(-10, 5, 20, 10));
    struct Case {
        int x, y;
        Object* found;
    } cases[] = {
        {120, 110, box},      {121, 105, nullptr}, {99, 105, nullptr},  {205, 15, acrossBorder},
        {-5, 10, nearOrigin}, {-205, 10, nullptr}, {5000, 10, nullptr},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(blocks().getObjectByPosition(c.x, c.y), c.found) << c.x << ", " << c.y;
    }
    box->setX(300);  // moved without telling the block map: its new place is not in its cells
    EXPECT_EQ(blocks().getObjectByPosition(305, 105), nullptr);
}

TEST_F(BlockSystemTest, LineStopsAtTheFirstOutlinePixelNotIgnored) {
    blocks().initialize(400, 300);
    added(makeBlock(100, 100, 50, 50));
    // A character's outline in its own colour, as a character would leave it.
    const int characterColour = makecol(200, 40, 40);
    rect(blocks().getBlockMap(), 200, 50, 239, 89, characterColour);
    struct Case {
        int ignored, x1, y1, x2, y2;
        bool found;
        int hitX, hitY;
    } cases[] = {
        {0, 0, 125, 300, 125, true, 100, 125},
        {0, 300, 125, 0, 125, true, 149, 125},
        {0, 110, 110, 140, 140, false, -7, -7},  // inside an outline nothing is in the way
        {characterColour, 200, 50, 239, 50, false, -7, -7},
        {makecol(255, 255, 255), 200, 50, 239, 50, true, 200, 50},
        {0, 390, 10, 410, 10, true, 400, 10},  // off the map reads as -1
        {-1, 390, 10, 410, 10, false, -7, -7},
    };
    for (const Case& c : cases) {
        int hitX = -7;
        int hitY = -7;
        EXPECT_EQ(blocks().checkLineCollision(c.ignored, c.x1, c.y1, c.x2, c.y2, &hitX, &hitY), c.found)
            << c.x1 << ", " << c.y1 << " to " << c.x2 << ", " << c.y2;
        EXPECT_EQ(hitX, c.hitX);
        EXPECT_EQ(hitY, c.hitY);
    }
}

TEST_F(BlockSystemTest, QueriesFindNothingBeforeTheFirstLevelAndAfterInitializingAgain) {
    Object* box = added(makeBlock(10, 10, 20, 20));
    int hitX = 0;
    int hitY = 0;
    EXPECT_EQ(blocks().getObjectByPosition(15, 15), nullptr);
    EXPECT_FALSE(blocks().checkCollision(box));
    EXPECT_FALSE(blocks().checkLineCollision(0, 0, 0, 50, 50, &hitX, &hitY));
    blocks().initialize(400, 300);
    blocks().addObject(box);
    blocks().initialize(400, 300);
    EXPECT_TRUE(cellsHolding(box).empty());
    EXPECT_EQ(pixel(10, 10), 0);
}

}  // namespace

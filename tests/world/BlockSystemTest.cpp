#include "world/BlockSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "support/WorldTestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using GrevanTest::makeBlock;
using GrevanTest::makeBody;

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

}  // namespace

class BlockSystemTest : public GrevanTest::HeadlessGameTest {
  protected:
    // Objects made by a test, freed with it; the block map does not own them.
    Object* keep(Object* o) {
        owned.emplace_back(o);
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
    } cases[] = {
        {1000, 600, 7, 5}, {200, 200, 3, 3}, {199, 1, 2, 2}, {2400, 600, 14, 5}, {401, 399, 4, 3},
    };
    for (const Case& c : cases) {
        blocks().initialize(c.width, c.height);
        EXPECT_EQ(blocks().getColumns(), c.columns) << c.width;
        EXPECT_EQ(blocks().getRows(), c.rows) << c.height;
        EXPECT_EQ(blocks().getBlockMap()->w, c.width);
        EXPECT_EQ(blocks().getBlockMap()->h, c.height);
    }
}

TEST_F(BlockSystemTest, ObjectIsEnteredInTheCellsOfItsRangeCountedAsUnsigned) {
    struct Case {
        int x, y, width, height;
        std::vector<Cell> cells;
    } cases[] = {
        {10, 10, 20, 20, {{0, 0}}},
        {-150, 10, 50, 10, {{0, 0}}},  // -199 to -1 divide to column 0
        {-250, 10, 150, 10, {}},       // a start of -200 or less walks nothing
        {10, -199, 10, 10, {{0, 0}}},
        {10, -200, 10, 10, {{0, 0}}},  // the pixel position of -200 is -199 (half added, truncated)
        {10, -201, 10, 10, {}},
        {195, 0, 10, 10, {{0, 0}, {0, 1}}},
        {399, 399, 2, 2, {{1, 1}, {1, 2}, {2, 1}, {2, 2}}},
        {1195, 590, 10, 20, {{2, 5}, {2, 6}, {3, 5}, {3, 6}}},  // spare row and column
        {1390, 10, 20, 10, {{0, 6}}},                           // the walk stops at the last column
        {1400, 10, 20, 10, {}},
        {10, 1000, 10, 10, {}},
    };
    blocks().initialize(1000, 600);
    for (const Case& c : cases) {
        Object* o = keep(makeBlock(c.x, c.y, c.width, c.height));
        blocks().addObject(o);
        EXPECT_EQ(cellsHolding(o), c.cells) << "object at " << c.x << ", " << c.y;
        blocks().removeObject(o);
        EXPECT_TRUE(cellsHolding(o).empty()) << "object at " << c.x << ", " << c.y;
    }
}

TEST_F(BlockSystemTest, NonCollidableObjectsStayOutOfTheBlockMap) {
    blocks().initialize(400, 400);
    Object* decoration = keep(makeBlock(10, 10, 20, 20, false));
    blocks().addObject(decoration);
    EXPECT_TRUE(cellsHolding(decoration).empty());
    EXPECT_EQ(pixel(10, 10), 0);
}

TEST_F(BlockSystemTest, NeighboursAreOfferedOncePerSharedCellInRowColumnAndInsertionOrder) {
    blocks().initialize(1000, 600);
    Object* rightCell = keep(makeBlock(200, 0, 20, 20));
    Object* bothCells = keep(makeBlock(190, 2, 20, 10));
    Object* leftCell = keep(makeBlock(186, 0, 10, 10));
    Object* elsewhere = keep(makeBlock(600, 400, 10, 10));
    for (Object* o : {rightCell, bothCells, leftCell, elsewhere}) {
        blocks().addObject(o);
    }
    Recorder* probe = static_cast<Recorder*>(keep(new Recorder()));
    probe->setX(195);
    probe->setWidth(10);
    probe->setHeight(10);
    EXPECT_TRUE(blocks().checkCollision(probe));
    std::vector<Object*> expected = {bothCells, leftCell, rightCell, bothCells};
    EXPECT_EQ(probe->offered, expected);
}

TEST_F(BlockSystemTest, CollisionCheckResolvesEveryOverlapAndToleratesMereContact) {
    blocks().initialize(1000, 600);
    Object* floor = keep(makeBlock(0, 100, 400, 20));
    blocks().addObject(floor);
    struct Case {
        int x, y;
        bool collided;
        int endX, endY;
    } cases[] = {
        {50, 71, false, 50, 71},  // resting: one pixel of overlap does not count
        {50, 75, true, 50, 71},   // sunk four pixels: put back on top
        {50, 50, false, 50, 50},  // in the air
        {50, 120, false, 50, 120},
    };
    for (const Case& c : cases) {
        Object* box = keep(makeBlock(c.x, c.y, 10, 30));
        EXPECT_EQ(blocks().checkCollision(box), c.collided) << c.y;
        EXPECT_EQ(box->getX(), c.endX);
        EXPECT_EQ(box->getY(), c.endY) << "from " << c.y;
    }
}

TEST_F(BlockSystemTest, BodyLeavingItsBoardIsSetFreeEvenThoughTheyNoLongerOverlap) {
    blocks().initialize(1000, 600);
    Object* board = keep(makeBlock(0, 100, 100, 20));
    blocks().addObject(board);
    RealBody* body = static_cast<RealBody*>(keep(makeBody(10, 71, 10, 30)));
    body->handleCollision(Grevan::SIDE_BOTTOM, board);
    ASSERT_EQ(body->getBoard(), board);
    body->setX(150);  // walked off the edge
    EXPECT_FALSE(blocks().checkCollision(body));
    EXPECT_EQ(body->getBoard(), nullptr);
    EXPECT_TRUE(body->isFree());
}

TEST_F(BlockSystemTest, BlockMapHoldsOutlinesOnlyAndRemovalLeavesGaps) {
    blocks().initialize(400, 300);
    const int white = makecol(255, 255, 255);
    Object* a = keep(makeBlock(10, 10, 20, 10));
    Object* b = keep(makeBlock(20, 5, 20, 20));
    blocks().addObject(a);
    blocks().addObject(b);
    blocks().removeObject(b);
    struct Case {
        int x, y, colour;
    } cases[] = {
        {10, 10, white}, {29, 19, white}, {15, 19, white},  // a's corners and edges
        {15, 15, 0},                                        // inside: only the outline is drawn
        {30, 10, 0},     {10, 20, 0},                       // one past right and bottom
        {20, 10, 0},     {20, 19, 0},                       // where b's outline crossed a's
        {29, 15, white}, {25, 19, white},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(pixel(c.x, c.y), c.colour) << c.x << ", " << c.y;
    }
}

TEST_F(BlockSystemTest, ChangesDuringAQueryAreRefused) {
    blocks().initialize(400, 300);
    class Meddler : public Object {
      public:
        explicit Meddler(Grevan::BlockSystem& blocks) : blocks(blocks) {}
        bool collide(Object* other) override {
            blocks.addObject(newcomer);
            blocks.removeObject(other);
            return false;
        }
        Grevan::BlockSystem& blocks;
        Object* newcomer = nullptr;
    };
    Object* neighbour = keep(makeBlock(10, 10, 20, 20));
    blocks().addObject(neighbour);
    Meddler* meddler = static_cast<Meddler*>(keep(new Meddler(blocks())));
    meddler->newcomer = keep(makeBlock(100, 100, 10, 10));
    meddler->setX(15);
    meddler->setY(15);
    meddler->setWidth(5);
    meddler->setHeight(5);
    testing::internal::CaptureStdout();
    blocks().checkCollision(meddler);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "You should not addObject while iterating.You should not removeObject while iterating.");
    EXPECT_TRUE(cellsHolding(meddler->newcomer).empty());
    EXPECT_EQ(cellsHolding(neighbour).size(), 1u);
}

TEST_F(BlockSystemTest, PointQuerySearchesOnlyThePointsCellWithInclusiveEdges) {
    blocks().initialize(1000, 600);
    Object* box = keep(makeBlock(100, 100, 20, 10));
    Object* acrossBorder = keep(makeBlock(190, 10, 20, 10));
    Object* nearOrigin = keep(makeBlock(-10, 5, 20, 10));
    for (Object* o : {box, acrossBorder, nearOrigin}) {
        blocks().addObject(o);
    }
    struct Case {
        int x, y;
        Object* found;
    } cases[] = {
        {110, 105, box},     {120, 105, box},         {121, 105, nullptr},     {100, 110, box},
        {99, 105, nullptr},  {205, 15, acrossBorder}, {195, 15, acrossBorder}, {-5, 10, nearOrigin},
        {-205, 10, nullptr}, {5000, 10, nullptr},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(blocks().getObjectByPosition(c.x, c.y), c.found) << c.x << ", " << c.y;
    }
    // Moved without telling the block map: its new place is not in its cells.
    box->setX(300);
    EXPECT_EQ(blocks().getObjectByPosition(305, 105), nullptr);
}

TEST_F(BlockSystemTest, LineStopsAtTheFirstOutlinePixelNotIgnored) {
    blocks().initialize(400, 300);
    blocks().addObject(keep(makeBlock(100, 100, 50, 50)));
    // A character's outline in its own colour, as a character would leave it.
    const int characterColour = makecol(200, 40, 40);
    rect(blocks().getBlockMap(), 200, 50, 239, 89, characterColour);
    const int white = makecol(255, 255, 255);
    struct Case {
        int ignored, x1, y1, x2, y2;
        bool found;
        int hitX, hitY;
    } cases[] = {
        {0, 0, 125, 300, 125, true, 100, 125},
        {0, 300, 125, 0, 125, true, 149, 125},
        {0, 110, 110, 140, 140, false, -7, -7},  // inside an outline nothing is in the way
        {characterColour, 200, 50, 239, 50, false, -7, -7},
        {white, 200, 50, 239, 50, true, 200, 50},
        {characterColour, 180, 70, 260, 70, false, -7, -7},
        {0, 390, 10, 410, 10, true, 400, 10},  // off the map reads as -1
        {-1, 390, 10, 410, 10, false, -7, -7},
        {0, -5, 10, 10, 10, true, -5, 10},
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

TEST_F(BlockSystemTest, InitializingAgainForgetsEveryObjectAndOutline) {
    blocks().initialize(400, 300);
    Object* box = keep(makeBlock(10, 10, 20, 20));
    blocks().addObject(box);
    blocks().initialize(400, 300);
    EXPECT_TRUE(cellsHolding(box).empty());
    EXPECT_EQ(pixel(10, 10), 0);
    EXPECT_EQ(blocks().getObjectByPosition(15, 15), nullptr);
}

TEST_F(BlockSystemTest, QueriesBeforeTheFirstLevelFindNothing) {
    Object* box = keep(makeBlock(10, 10, 20, 20));
    blocks().addObject(box);
    int hitX = 0;
    int hitY = 0;
    EXPECT_EQ(blocks().getObjectByPosition(15, 15), nullptr);
    EXPECT_FALSE(blocks().checkCollision(box));
    EXPECT_FALSE(blocks().checkLineCollision(0, 0, 0, 50, 50, &hitX, &hitY));
}

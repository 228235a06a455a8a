#include "world/BlockSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/Probe.h"
#include "support/TestSupport.h"

using Grevan::Object;
using GrevanTest::Cells;

namespace {

class BlockSystemTest : public HeadlessGame {
  protected:
    // A probe made by the test and freed with it (the block map does not own it), entered.
    Probe* added(int x, int y, int width, int height, bool collidable = true) {
        owned.push_back(std::make_unique<Probe>(x, y, width, height, collidable));
        blocks().addObject(owned.back().get());
        return owned.back().get();
    }
    Cells cellsHolding(Object* o) { return GrevanTest::cellsHolding(blocks(), o); }
    int pixel(int x, int y) { return getpixel(blocks().getBlockMap(), x, y); }

    std::vector<std::unique_ptr<Probe>> owned;
};

TEST_F(BlockSystemTest, TwoSpareRowsAndColumnsAndAnObjectIsEnteredInTheCellsOfItsRangeCountedAsUnsigned) {
    blocks().initialize(1000, 600);
    EXPECT_EQ(blocks().getColumns(), 7u);
    EXPECT_EQ(blocks().getRows(), 5u);
    // -199 to -1 divide to column 0, a start of -200 or less walks nothing; the pixel position of
    // -200 is -199 (half added, truncated); the spare row and column; the walk stops at the last column.
    const std::tuple<int, int, int, int, Cells> cases[] = {
        {-150, 10, 50, 10, {{0, 0}}},       {-250, 10, 150, 10, {}},
        {10, -200, 10, 10, {{0, 0}}},       {10, -201, 10, 10, {}},
        {195, 0, 10, 10, {{0, 0}, {0, 1}}}, {1195, 590, 10, 20, {{2, 5}, {2, 6}, {3, 5}, {3, 6}}},
        {1390, 10, 20, 10, {{0, 6}}},       {10, 1000, 10, 10, {}}};
    for (const auto& [x, y, width, height, cells] : cases) {
        Object* o = added(x, y, width, height);
        EXPECT_EQ(cellsHolding(o), cells) << "object at " << x << ", " << y;
        blocks().removeObject(o);
        EXPECT_TRUE(cellsHolding(o).empty()) << "object at " << x << ", " << y;
    }
    EXPECT_TRUE(cellsHolding(added(10, 10, 20, 20, false)).empty()) << "not collidable";
}

TEST_F(BlockSystemTest, NeighboursAreOfferedOncePerSharedCellInOrderAndMayNotChangeTheGrid) {
    blocks().initialize(1000, 600);
    Object* rightCell = added(200, 0, 20, 20);
    Object* bothCells = added(190, 2, 20, 10);
    Object* leftCell = added(186, 0, 10, 10);
    added(600, 400, 10, 10);
    Probe newcomer(100, 100, 10, 10);
    Probe probe(195, 0, 10, 10);
    probe.onCollide = [&](Object* other) {
        if (other == leftCell) {
            blocks().addObject(&newcomer);
            blocks().removeObject(other);
        }
        return true;
    };
    EXPECT_EQ(GrevanTest::printedBy([&] { EXPECT_TRUE(blocks().checkCollision(&probe)); }),
              "You should not addObject while iterating.You should not removeObject while iterating.");
    // Row by row, column by column, and in each cell in the order of entry.
    EXPECT_EQ(probe.offered, (std::vector<Object*>{bothCells, leftCell, rightCell, bothCells}));
    EXPECT_TRUE(cellsHolding(&newcomer).empty());
    EXPECT_EQ(cellsHolding(leftCell), (Cells{{0, 0}}));
}

TEST_F(BlockSystemTest, OutlinesOnlyRemovalLeavesGapsAndNothingIsFoundBeforeALevelNorKeptIntoTheNext) {
    Object* box = added(10, 10, 20, 10);  // before the first level: there is no grid and no block map
    int hit = 0;
    EXPECT_EQ(blocks().getObjectByPosition(15, 15), nullptr);
    EXPECT_FALSE(blocks().checkCollision(box));
    EXPECT_FALSE(blocks().checkLineCollision(0, 0, 0, 50, 50, &hit, &hit));
    blocks().initialize(400, 300);
    blocks().addObject(box);
    const int white = makecol(255, 255, 255);
    blocks().removeObject(added(20, 5, 20, 20));
    // A drop of blood has no area: it neither outlines itself nor cuts into the box's outline.
    added(50, 50, 0, 0);
    blocks().removeObject(added(10, 15, 0, 0));
    // The corners; inside, where only the outline is drawn; one past right and bottom; where the
    // removed outline crossed; the drops' places.
    const std::tuple<int, int, int> cases[] = {
        {10, 10, white}, {29, 19, white}, {25, 19, white}, {15, 15, 0}, {30, 10, 0},     {10, 20, 0},
        {20, 10, 0},     {20, 19, 0},     {50, 50, 0},     {49, 49, 0}, {10, 15, white}, {10, 14, white}};
    for (auto [x, y, colour] : cases) {
        EXPECT_EQ(pixel(x, y), colour) << x << ", " << y;
    }
    blocks().initialize(400, 300);
    EXPECT_TRUE(cellsHolding(box).empty());
    EXPECT_EQ(pixel(10, 10), 0);
}

TEST_F(BlockSystemTest, PointQuerySearchesOnlyThePointsCellWithInclusiveEdges) {
    blocks().initialize(1000, 600);
    Object* box = added(100, 100, 20, 10);
    Object* acrossBorder = added(190, 10, 20, 10);
    Object* nearOrigin = added(-10, 5, 20, 10);
    const std::tuple<int, int, Object*> cases[] = {
        {120, 110, box},      {121, 105, nullptr}, {99, 105, nullptr}, {205, 15, acrossBorder},
        {-5, 10, nearOrigin}, {-205, 10, nullptr}, {5000, 10, nullptr}};
    for (auto [x, y, found] : cases) {
        EXPECT_EQ(blocks().getObjectByPosition(x, y), found) << x << ", " << y;
    }
    box->setX(300);  // moved without telling the block map: its new place is not in its cells
    EXPECT_EQ(blocks().getObjectByPosition(305, 105), nullptr);
}

TEST_F(BlockSystemTest, LineStopsAtTheFirstOutlinePixelNotIgnored) {
    blocks().initialize(400, 300);
    added(100, 100, 50, 50);
    // A character's outline in its own colour, as a character would leave it.
    const int characterColour = makecol(200, 40, 40);
    rect(blocks().getBlockMap(), 200, 50, 239, 89, characterColour);
    // The colour ignored, the line, whether it is found and where (-7 where nothing is found and the
    // outputs stay as they were). Inside an outline nothing is in the way; off the map reads as -1.
    const std::tuple<int, int, int, int, int, bool, int, int> cases[] = {
        {0, 0, 125, 300, 125, true, 100, 125},
        {0, 300, 125, 0, 125, true, 149, 125},
        {0, 110, 110, 140, 140, false, -7, -7},
        {characterColour, 200, 50, 239, 50, false, -7, -7},
        {makecol(255, 255, 255), 200, 50, 239, 50, true, 200, 50},
        {0, 390, 10, 410, 10, true, 400, 10},
        {-1, 390, 10, 410, 10, false, -7, -7}};
    for (auto [ignored, x1, y1, x2, y2, found, x, y] : cases) {
        int hitX = -7;
        int hitY = -7;
        EXPECT_EQ(blocks().checkLineCollision(ignored, x1, y1, x2, y2, &hitX, &hitY), found)
            << x1 << ", " << y1 << " to " << x2 << ", " << y2;
        EXPECT_EQ(std::make_pair(hitX, hitY), std::make_pair(x, y));
    }
}

}  // namespace

#include "world/ObjectSystem.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/HeadlessGame.h"
#include "support/Probe.h"
#include "support/TestSupport.h"

using Grevan::Object;
using GrevanTest::Cells;

namespace {

class ObjectSystemTest : public HeadlessGame {
  protected:
    void SetUp() override { blocks().initialize(1000, 600); }

    Probe* registered(int x, int y, bool collidable = true, bool* deleted = nullptr) {
        Probe* probe = new Probe(x, y, 10, 10, collidable);
        probe->deleted = deleted;
        objects().addObject(probe);
        return probe;
    }
    Cells cellsHolding(Object* o) { return GrevanTest::cellsHolding(blocks(), o); }
};

TEST_F(ObjectSystemTest, ObjectAddedDuringAWalkJoinsAtTheEndOfTheFrame) {
    Probe* child = new Probe(0, 0, 10, 10);
    Probe* parent = registered(0, 0, false);
    parent->onMove = [&] {
        if (parent->moves == 1) {
            objects().addObject(child);
        }
    };
    objects().moveObjects();
    objects().drawObjects(buffer, 0, 0);
    EXPECT_EQ(objects().getObjectCount(), 1);
    EXPECT_EQ(child->draws, 0);
    EXPECT_TRUE(cellsHolding(child).empty());
    objects().removeDeadObjects();
    EXPECT_EQ(objects().getObjects(), (std::vector<Object*>{parent, child}));
    EXPECT_EQ(cellsHolding(child), (Cells{{0, 0}}));
    objects().moveObjects();
    EXPECT_EQ(child->moves, 1);
}

TEST_F(ObjectSystemTest, NeighbouringDeadObjectsAreReapedInOnePassAndTheRestKeepTheirOrder) {
    const bool dead[] = {true, false, true, true, false, true};
    bool deleted[6] = {};
    std::vector<Object*> survivors;
    for (int i = 0; i < 6; ++i) {
        Probe* probe = registered(0, 0, true, &deleted[i]);
        if (dead[i]) {
            probe->die();
        } else {
            survivors.push_back(probe);
        }
    }
    objects().removeDeadObjects();
    EXPECT_EQ(objects().getObjects(), survivors);
    EXPECT_EQ(blocks().getCell(0, 0), survivors) << "only the survivors stay in the block map";
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(deleted[i], dead[i]) << i;
    }
    // The survivors go now, while the flags they set on deletion still exist.
    objects().cleanupObjects();
}

TEST_F(ObjectSystemTest, DeadObjectsAreDrawnButNotMovedUntilReapedAndHiddenOnesAreNotDrawn) {
    bool deleted = false;
    Probe* dying = registered(0, 0, false, &deleted);
    dying->onMove = [dying] { dying->die(); };
    Probe* hidden = registered(50, 0, false);
    hidden->hide();
    objects().moveObjects();
    objects().moveObjects();
    objects().drawObjects(buffer, 0, 0);
    EXPECT_EQ(dying->moves, 1);
    EXPECT_EQ(dying->draws, 1);
    EXPECT_EQ(hidden->draws, 0);
    EXPECT_FALSE(deleted);
    const int dyingId = dying->getId();
    EXPECT_EQ(objects().getObjectById(dyingId), dying);
    objects().removeDeadObjects();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(objects().getObjects(), std::vector<Object*>{hidden});
    EXPECT_EQ(objects().getObjectById(dyingId), nullptr);
    EXPECT_EQ(objects().getObjectById(hidden->getId()), hidden);
}

TEST_F(ObjectSystemTest, RemovalDuringAWalkIsRefusedAndOutsideItOnlyForgets) {
    Probe* walker = registered(0, 0, false);
    Probe* other = registered(100, 100);
    bool removedDuringWalk = true;
    walker->onMove = [&] { removedDuringWalk = objects().removeObject(other); };
    EXPECT_EQ(GrevanTest::printedBy([&] { objects().moveObjects(); }),
              "You should not remove Object when iterating ..");
    EXPECT_FALSE(removedDuringWalk);
    EXPECT_EQ(objects().getObjectCount(), 2);
    walker->onMove = nullptr;
    EXPECT_TRUE(objects().removeObject(other));
    EXPECT_FALSE(objects().removeObject(other));
    // Forgotten, not deleted, and left in the block map until taken out.
    EXPECT_EQ(cellsHolding(other), (Cells{{0, 0}}));
    blocks().removeObject(other);
    delete other;
}

TEST_F(ObjectSystemTest, OnlyCollidableObjectsWhoseRectangleChangedAreCheckedAndReentered) {
    Probe* resting = registered(195, 0);  // overlaps the wall but never moves
    Probe* runner = registered(180, 100);
    runner->setVelocity(Vector(4, 0));
    Probe* ghost = registered(170, 50, false);  // moves, but cannot collide
    ghost->setVelocity(Vector(40, 0));
    objects().addObject(new Probe(190, 0, 20, 200));
    objects().moveObjects();
    EXPECT_TRUE(resting->offered.empty());
    EXPECT_TRUE(ghost->offered.empty());
    EXPECT_TRUE(cellsHolding(ghost).empty());
    // The runner reached the wall: pushed back to its left side, re-entered where it now is.
    EXPECT_EQ(runner->offered.size(), 1u);
    EXPECT_EQ(runner->getX(), 190 - 10 - 1);
    EXPECT_EQ(cellsHolding(runner), (Cells{{0, 0}}));
    runner->setVelocity(Vector(0, 150));
    objects().moveObjects();
    EXPECT_EQ(cellsHolding(runner), (Cells{{1, 0}}));
}

}  // namespace

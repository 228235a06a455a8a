#include "world/ObjectSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/Probe.h"
#include "support/TestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using GrevanTest::Cells;

namespace {

class ObjectSystemTest : public HeadlessGame {
  protected:
    void SetUp() override { blocks().initialize(1000, 600); }

    Probe* registered(int x, int y, bool collidable = true, bool* deleted = nullptr) {
        Probe* probe = new Probe(x, y, 10, 10, collidable);
        probe->deleted = deleted;
        objects().addObject(std::unique_ptr<Probe>(probe));
        return probe;
    }
    Cells cellsHolding(Object* o) { return GrevanTest::cellsHolding(blocks(), o); }
};

TEST_F(ObjectSystemTest, DuringAWalkAnAddedObjectWaitsForTheReapAndARemovalIsRefused) {
    Probe* child = new Probe(0, 0, 10, 10);
    Probe* parent = registered(0, 0, false);
    Probe* other = registered(100, 100);
    bool removedDuringWalk = true;
    parent->onMove = [&] {
        if (parent->moves == 1) {
            objects().addObject(std::unique_ptr<Probe>(child));
            removedDuringWalk = objects().removeObject(other) != nullptr;
        }
    };
    EXPECT_EQ(GrevanTest::printedBy([&] { objects().moveObjects(); }),
              "You should not remove Object when iterating ..");
    EXPECT_FALSE(removedDuringWalk);
    objects().drawObjects(buffer, 0, 0);
    EXPECT_EQ(child->draws, 0);
    EXPECT_TRUE(cellsHolding(child).empty());
    objects().removeDeadObjects();
    EXPECT_EQ(objects().getObjects(), (std::vector<Object*>{parent, other, child}));
    EXPECT_EQ(cellsHolding(child), (Cells{{0, 0}}));
    // Outside a walk a removal hands the object back: it stays in the block map until taken out.
    std::unique_ptr<Object> removed = objects().removeObject(other);
    EXPECT_EQ(removed.get(), other);
    EXPECT_EQ(objects().removeObject(other), nullptr);
    EXPECT_EQ(cellsHolding(other), (Cells{{0, 0}}));
    blocks().removeObject(other);
}

TEST_F(ObjectSystemTest, TheDeadAreDrawnButNotMovedUntilReapedAllInOnePassAndTheRestKeepTheirOrder) {
    const bool dead[] = {true, false, true, true, false, true};
    bool deleted[6] = {};
    std::vector<Probe*> probes;
    std::vector<Object*> survivors;
    for (int i = 0; i < 6; ++i) {
        Probe* probe = registered(0, 0, true, &deleted[i]);
        if (dead[i]) {
            probe->onMove = [probe] { probe->die(); };
        } else {
            survivors.push_back(probe);
        }
        probes.push_back(probe);
    }
    probes[4]->hide();
    objects().moveObjects();
    objects().moveObjects();
    objects().drawObjects(buffer, 0, 0);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(probes[i]->moves, dead[i] ? 1 : 2) << i;
        EXPECT_EQ(probes[i]->draws, i == 4 ? 0 : 1) << i;
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

TEST_F(ObjectSystemTest, OnlyCollidableObjectsWhoseRectangleChangedAreCheckedAndReentered) {
    Probe* resting = registered(195, 0);  // overlaps the wall but never moves
    Probe* runner = registered(180, 100);
    runner->setVelocity(Vector(4, 0));
    Probe* ghost = registered(170, 50, false);  // moves, but cannot collide
    ghost->setVelocity(Vector(40, 0));
    objects().addObject(std::make_unique<Probe>(190, 0, 20, 200));
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

TEST_F(ObjectSystemTest, ABodyKeepsItsRidersWhileItMeetsSomethingAndLetsGoOnceItMovesClear) {
    objects().addObject(std::make_unique<Probe>(190, 0, 20, 200));
    RealBody* lift = GrevanTest::makeBody(150, 100, 30, 10);
    lift->setFree(false);  // neither free nor on a board: no gravity
    RealBody* rider = GrevanTest::makeBody(150, 81, 20, 20);
    for (RealBody* body : {lift, rider}) {
        objects().addObject(std::unique_ptr<RealBody>(body));
    }
    rider->handleCollision(Grevan::SIDE_BOTTOM, lift);
    lift->setVelocity(Vector(15, 0));
    objects().moveObjects();
    EXPECT_EQ(lift->getRiders(), std::vector<RealBody*>{rider}) << "it ran into the wall";
    lift->setVelocity(Vector(0, 20));
    objects().moveObjects();
    EXPECT_TRUE(lift->getRiders().empty());
    EXPECT_TRUE(rider->isFree());
}

}  // namespace

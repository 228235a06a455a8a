#include "world/ObjectSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"
#include "world/BlockSystem.h"

using Grevan::Object;

namespace {

// Counts what the registry does to it, runs an optional action inside its move, and tells a
// flag when it is deleted.
class Probe : public Object {
  public:
    explicit Probe(bool* deleted = nullptr, bool collidable = false) : deleted(deleted) {
        setWidth(10);
        setHeight(10);
        setCollidable(collidable);
        show();
    }
    ~Probe() override {
        if (deleted) {
            *deleted = true;
        }
    }
    void move() override {
        ++moves;
        Object::move();
        if (onMove) {
            onMove();
        }
    }
    void draw(BITMAP*, int, int) override { ++draws; }
    bool collide(Object* other) override {
        ++collisionChecks;
        return Object::collide(other);
    }

    int moves = 0;
    int draws = 0;
    int collisionChecks = 0;
    std::function<void()> onMove;
    bool* deleted;
};

class ObjectSystemTest : public HeadlessGame {
  protected:
    void SetUp() override { blocks().initialize(1000, 600); }

    bool inCell(Object* o, unsigned row, unsigned column) {
        const std::vector<Object*>& cell = blocks().getCell(row, column);
        return std::find(cell.begin(), cell.end(), o) != cell.end();
    }
};

TEST_F(ObjectSystemTest, ObjectAddedDuringAWalkJoinsAtTheEndOfTheFrame) {
    Probe* parent = new Probe();
    Probe* child = new Probe(nullptr, true);
    parent->onMove = [&] {
        if (parent->moves == 1) {
            objects().addObject(child);
        }
    };
    objects().addObject(parent);
    objects().moveObjects();
    objects().drawObjects(buffer, 0, 0);
    EXPECT_EQ(objects().getObjectCount(), 1);
    EXPECT_EQ(child->draws, 0);
    EXPECT_FALSE(inCell(child, 0, 0));
    objects().removeDeadObjects();
    EXPECT_EQ(objects().getObjects(), (std::vector<Object*>{parent, child}));
    EXPECT_TRUE(inCell(child, 0, 0));
    objects().moveObjects();
    EXPECT_EQ(child->moves, 1);
}

TEST_F(ObjectSystemTest, NeighbouringDeadObjectsAreReapedInOnePassAndTheRestKeepTheirOrder) {
    for (std::vector<bool> dead : {std::vector<bool>{false, true, true, false}, {true, true, true}}) {
        std::vector<Object*> survivors;
        bool deleted[4] = {false, false, false, false};
        for (size_t i = 0; i < dead.size(); ++i) {
            Probe* probe = new Probe(&deleted[i], true);
            objects().addObject(probe);
            if (dead[i]) {
                probe->die();
            } else {
                survivors.push_back(probe);
            }
        }
        objects().removeDeadObjects();
        EXPECT_EQ(objects().getObjects(), survivors);
        EXPECT_EQ(blocks().getCell(0, 0), survivors) << "only the survivors stay in the block map";
        for (size_t i = 0; i < dead.size(); ++i) {
            EXPECT_EQ(deleted[i], dead[i]) << i;
        }
        objects().cleanupObjects();
        blocks().initialize(1000, 600);
    }
}

TEST_F(ObjectSystemTest, DeadObjectsAreDrawnButNotMovedUntilReapedAndHiddenOnesAreNotDrawn) {
    bool deleted = false;
    Probe* dying = new Probe(&deleted);
    dying->onMove = [dying] { dying->die(); };
    Probe* hidden = new Probe();
    hidden->hide();
    objects().addObject(dying);
    objects().addObject(hidden);
    objects().moveObjects();
    objects().moveObjects();
    objects().drawObjects(buffer, 0, 0);
    EXPECT_EQ(dying->moves, 1);
    EXPECT_EQ(dying->draws, 1);
    EXPECT_EQ(hidden->draws, 0);
    EXPECT_FALSE(deleted);
    objects().removeDeadObjects();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(objects().getObjects(), std::vector<Object*>{hidden});
}

TEST_F(ObjectSystemTest, RemovalDuringAWalkIsRefusedAndOutsideItOnlyForgets) {
    Probe* walker = new Probe();
    Object* other = GrevanTest::makeBlock(100, 100, 10, 10);
    bool removedDuringWalk = true;
    walker->onMove = [&] { removedDuringWalk = objects().removeObject(other); };
    objects().addObject(walker);
    objects().addObject(other);
    EXPECT_EQ(GrevanTest::printedBy([&] { objects().moveObjects(); }),
              "You should not remove Object when iterating ..");
    EXPECT_FALSE(removedDuringWalk);
    EXPECT_EQ(objects().getObjectCount(), 2);
    walker->onMove = nullptr;
    EXPECT_TRUE(objects().removeObject(other));
    EXPECT_FALSE(objects().removeObject(other));
    // Forgotten, not deleted, and left in the block map until taken out.
    EXPECT_TRUE(inCell(other, 0, 0));
    blocks().removeObject(other);
    delete other;
}

TEST_F(ObjectSystemTest, OnlyCollidableObjectsWhoseRectangleChangedAreCheckedAndReentered) {
    Probe* resting = new Probe(nullptr, true);  // overlaps the wall but never moves
    Probe* runner = new Probe(nullptr, true);
    Probe* ghost = new Probe();  // moves, but cannot collide
    resting->setX(195);
    runner->setPosition(Vector(180, 100));
    runner->setVelocity(Vector(4, 0));
    ghost->setPosition(Vector(170, 50));
    ghost->setVelocity(Vector(40, 0));
    for (Object* o : {resting, runner, ghost}) {
        objects().addObject(o);
    }
    objects().addObject(GrevanTest::makeBlock(190, 0, 20, 200));
    objects().moveObjects();
    EXPECT_EQ(resting->collisionChecks, 0);
    EXPECT_EQ(ghost->collisionChecks, 0);
    EXPECT_FALSE(inCell(ghost, 0, 1));
    // The runner reached the wall: pushed back to its left side, re-entered where it now is.
    EXPECT_EQ(runner->collisionChecks, 1);
    EXPECT_EQ(runner->getX(), 190 - 10 - 1);
    EXPECT_TRUE(inCell(runner, 0, 0));
    EXPECT_FALSE(inCell(runner, 0, 1));
    runner->setVelocity(Vector(0, 150));
    objects().moveObjects();
    EXPECT_FALSE(inCell(runner, 0, 0));
    EXPECT_TRUE(inCell(runner, 1, 0));
}

TEST_F(ObjectSystemTest, ObjectsAreFoundByIdOnlyWhileRegistered) {
    Object* first = GrevanTest::makeBlock(0, 0, 1, 1);
    objects().addObject(first);
    objects().addObject(GrevanTest::makeBlock(0, 0, 1, 1));
    EXPECT_EQ(objects().getObjectById(first->getId()), first);
    EXPECT_EQ(objects().getObjectById(first->getId() + 1000), nullptr);
}

}  // namespace

#include "world/ObjectSystem.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "support/WorldTestSupport.h"
#include "world/BlockSystem.h"

using Grevan::Object;
using GrevanTest::makeBlock;

namespace {

// Counts what the registry does to it, runs an optional action inside its move, and tells a
// flag when it is deleted.
class Probe : public Object {
  public:
    explicit Probe(bool* deleted = nullptr) : deleted(deleted) {
        setWidth(10);
        setHeight(10);
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

}  // namespace

class ObjectSystemTest : public GrevanTest::HeadlessGameTest {
  protected:
    void SetUp() override {
        blocks().initialize(1000, 600);
        frame = create_bitmap(80, 60);
    }
    void TearDown() override { destroy_bitmap(frame); }

    bool inCell(Object* o, unsigned row, unsigned column) {
        for (Object* entry : blocks().getCell(row, column)) {
            if (entry == o) {
                return true;
            }
        }
        return false;
    }

    BITMAP* frame = nullptr;
};

TEST_F(ObjectSystemTest, ObjectAddedDuringAWalkJoinsAtTheEndOfTheFrame) {
    Probe* parent = new Probe();
    Probe* child = new Probe();
    child->setCollidable(true);
    parent->onMove = [&] {
        if (parent->moves == 1) {
            objects().addObject(child);
        }
    };
    objects().addObject(parent);

    objects().moveObjects();
    EXPECT_EQ(objects().getObjectCount(), 1);
    objects().drawObjects(frame, 0, 0);
    EXPECT_EQ(child->moves, 0);
    EXPECT_EQ(child->draws, 0);
    EXPECT_FALSE(inCell(child, 0, 0));

    objects().removeDeadObjects();
    EXPECT_EQ(objects().getObjectCount(), 2);
    EXPECT_EQ(objects().getObjects().back(), child);
    EXPECT_TRUE(inCell(child, 0, 0));

    objects().moveObjects();
    EXPECT_EQ(child->moves, 1);
}

TEST_F(ObjectSystemTest, NeighbouringDeadObjectsAreReapedInOnePassAndTheRestKeepTheirOrder) {
    struct Case {
        std::vector<bool> dead;
    } cases[] = {
        {{false, true, true, false}}, {{true, true, false}}, {{false, true, true}},
        {{true, true, true}},         {{false, false}},
    };
    for (const Case& c : cases) {
        std::vector<Object*> survivors;
        bool deleted[4] = {false, false, false, false};
        for (size_t i = 0; i < c.dead.size(); ++i) {
            Probe* probe = new Probe(&deleted[i]);
            probe->setCollidable(true);
            objects().addObject(probe);
            if (c.dead[i]) {
                probe->die();
            } else {
                survivors.push_back(probe);
            }
        }
        objects().removeDeadObjects();
        EXPECT_EQ(objects().getObjects(), survivors);
        for (size_t i = 0; i < c.dead.size(); ++i) {
            EXPECT_EQ(deleted[i], c.dead[i]) << i;
        }
        // Only the survivors are left in the block map.
        EXPECT_EQ(blocks().getCell(0, 0), survivors);
        objects().cleanupObjects();
        blocks().initialize(1000, 600);
    }
}

TEST_F(ObjectSystemTest, ObjectDyingInItsMoveIsDrawnThatFrameAndReapedAtItsEnd) {
    bool deleted = false;
    Probe* probe = new Probe(&deleted);
    probe->onMove = [probe] { probe->die(); };
    objects().addObject(probe);
    objects().moveObjects();
    objects().drawObjects(frame, 0, 0);
    EXPECT_EQ(probe->draws, 1);
    EXPECT_FALSE(deleted);
    objects().removeDeadObjects();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(objects().getObjectCount(), 0);
}

TEST_F(ObjectSystemTest, DeadObjectsAreNotMovedAndHiddenOnesNotDrawn) {
    Probe* dead = new Probe();
    Probe* hidden = new Probe();
    dead->die();
    hidden->hide();
    objects().addObject(dead);
    objects().addObject(hidden);
    objects().moveObjects();
    objects().drawObjects(frame, 0, 0);
    EXPECT_EQ(dead->moves, 0);
    EXPECT_EQ(dead->draws, 1);
    EXPECT_EQ(hidden->moves, 1);
    EXPECT_EQ(hidden->draws, 0);
}

TEST_F(ObjectSystemTest, RemovalDuringAWalkIsRefusedAndOutsideItOnlyForgets) {
    Probe* walker = new Probe();
    Object* other = makeBlock(100, 100, 10, 10);
    bool removedDuringWalk = true;
    walker->onMove = [&] { removedDuringWalk = objects().removeObject(other); };
    objects().addObject(walker);
    objects().addObject(other);

    testing::internal::CaptureStdout();
    objects().moveObjects();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "You should not remove Object when iterating ..");
    EXPECT_FALSE(removedDuringWalk);
    EXPECT_EQ(objects().getObjectCount(), 2);

    walker->onMove = nullptr;
    EXPECT_TRUE(objects().removeObject(other));
    EXPECT_FALSE(objects().removeObject(other));
    EXPECT_EQ(objects().getObjectCount(), 1);
    // It is forgotten, not deleted, and stays in the block map until taken out.
    EXPECT_TRUE(inCell(other, 0, 0));
    blocks().removeObject(other);
    delete other;
}

TEST_F(ObjectSystemTest, OnlyCollidableObjectsWhoseRectangleChangedAreCheckedAndReentered) {
    Probe* resting = new Probe();  // overlaps the wall but never moves
    Probe* runner = new Probe();
    Probe* ghost = new Probe();  // moves, but cannot collide
    Object* wall = makeBlock(190, 0, 20, 200);
    resting->setX(195);
    resting->setCollidable(true);
    runner->setX(180);
    runner->setY(100);
    runner->setCollidable(true);
    runner->setVelocity(Vector(4, 0));
    ghost->setX(170);
    ghost->setY(50);
    ghost->setVelocity(Vector(40, 0));
    for (Object* o :
         {static_cast<Object*>(resting), static_cast<Object*>(runner), static_cast<Object*>(ghost), wall}) {
        objects().addObject(o);
    }

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
    Object* first = makeBlock(0, 0, 1, 1);
    Object* second = makeBlock(0, 0, 1, 1);
    objects().addObject(first);
    objects().addObject(second);
    EXPECT_EQ(objects().getObjectById(second->getId()), second);
    EXPECT_EQ(objects().getObjectById(first->getId()), first);
    EXPECT_EQ(objects().getObjectById(second->getId() + 1000), nullptr);
    objects().cleanupObjects();
    EXPECT_EQ(objects().getObjectCount(), 0);
    EXPECT_EQ(objects().getObjectById(1), nullptr);
}

#include "world/RealBody.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/WorldTestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using Grevan::SIDE_BOTTOM;
using Grevan::SIDE_LEFT;
using Grevan::SIDE_RIGHT;
using Grevan::SIDE_TOP;
using GrevanTest::makeBlock;
using GrevanTest::makeBody;

namespace {

// A board whose friction constant is its own.
class Ice : public Object {
  public:
    explicit Ice(float friction) { frictionConstant = friction; }
};

// A body standing on a fresh plain board with the given horizontal speed.
struct Standing {
    std::unique_ptr<Object> board{makeBlock(0, 100, 400, 20)};
    std::unique_ptr<RealBody> body{makeBody(10, 71, 10, 30)};

    explicit Standing(float vx) {
        body->handleCollision(SIDE_BOTTOM, board.get());
        body->setVelocity(Vector(vx, 0));
    }
};

}  // namespace

TEST(RealBody, FallingFromRestGainsGravityEachFrameUpToTheSpeedCap) {
    struct Case {
        int frames;
        float vy;
    } cases[] = {{1, 0.0f}, {2, 0.12f}, {3, 0.24f}, {10, 1.08f}, {67, 7.92f}, {68, 8.0f}, {200, 8.0f}};
    for (const Case& c : cases) {
        RealBody body;
        for (int i = 0; i < c.frames; ++i) {
            body.move();
        }
        EXPECT_NEAR(body.getVelocity().y, c.vy, 1e-4) << c.frames << " frames";
        EXPECT_FLOAT_EQ(body.getAcceleration().y, RealBody::kGravity);
    }
}

TEST(RealBody, GravityReplacesAnyOtherAccelerationOfAFreeBody) {
    RealBody body;
    body.setAcceleration(Vector(1.0f, -3.0f));
    body.move();
    // The old acceleration still acted on this frame's velocity.
    EXPECT_FLOAT_EQ(body.getVelocity().x, 1.0f);
    EXPECT_FLOAT_EQ(body.getAcceleration().x, 0.0f);
    EXPECT_FLOAT_EQ(body.getAcceleration().y, RealBody::kGravity);
}

TEST(RealBody, StandingFrictionSlowsToExactlyZeroWithoutChangingSign) {
    struct Case {
        float vx;
        std::vector<float> next;  // the speeds of the first frames
        int framesToRest;
    } cases[] = {
        {0.05f, {0.0f}, 1},
        {-3.0f, {-2.88f, -2.76f, -2.64f}, 25},
        {3.0f, {2.88f, 2.76f}, 25},
        {0.15f, {0.03f, 0.0f}, 2},  // what friction leaves is snapped away by the next frame's sum
    };
    for (const Case& c : cases) {
        Standing standing(c.vx);
        RealBody& body = *standing.body;
        EXPECT_FLOAT_EQ(body.getSlidingFriction(), 0.12f);
        for (float expected : c.next) {
            body.move();
            EXPECT_NEAR(body.getVelocity().x, expected, 1e-4) << "from " << c.vx;
        }
        for (int frame = static_cast<int>(c.next.size()); frame < c.framesToRest + 5; ++frame) {
            body.move();
            EXPECT_GE(body.getVelocity().x * c.vx, 0.0f) << "from " << c.vx;
        }
        EXPECT_EQ(body.getVelocity().x, 0.0f) << "from " << c.vx;
    }
}

TEST(RealBody, SlidingFrictionStartsAtZeroAndComesFromTheBoardOnLanding) {
    RealBody body;
    EXPECT_EQ(body.getSlidingFriction(), 0.0f);
    struct Case {
        float boardFriction;
        float sliding;
    } cases[] = {{1.0f, 0.12f}, {0.5f, 0.06f}, {0.0f, 0.0f}};
    for (const Case& c : cases) {
        Ice board(c.boardFriction);
        body.handleCollision(SIDE_BOTTOM, &board);
        EXPECT_FLOAT_EQ(body.getSlidingFriction(), c.sliding);
        body.setFree(true);
    }
}

TEST(RealBody, LandingBouncesOnlyWhenBouncyAndStrictlyFasterThanTheLimit) {
    struct Case {
        bool bouncy;
        float vy;
        float vyAfter;
        bool standing;
    } cases[] = {
        {true, 4.0f, -2.0f, false}, {true, 1.5f, -0.75f, false}, {true, 1.0f, 0.0f, true},
        {true, 0.5f, 0.0f, true},   {false, 4.0f, 0.0f, true},
    };
    for (const Case& c : cases) {
        std::unique_ptr<Object> floor(makeBlock(0, 100, 100, 10));
        RealBody body;
        body.setBouncy(c.bouncy);
        body.setVelocity(Vector(2.0f, c.vy));
        body.setAcceleration(Vector(0, RealBody::kGravity));
        body.handleCollision(SIDE_BOTTOM, floor.get());
        EXPECT_FLOAT_EQ(body.getVelocity().y, c.vyAfter) << c.vy;
        EXPECT_FLOAT_EQ(body.getVelocity().x, 2.0f);
        EXPECT_EQ(body.isFree(), !c.standing) << c.vy;
        EXPECT_EQ(body.getBoard(), c.standing ? floor.get() : nullptr) << c.vy;
        EXPECT_FLOAT_EQ(body.getAcceleration().y, c.standing ? 0.0f : RealBody::kGravity);
    }
}

TEST(RealBody, HitsOnTheSidesAverageAndReverseAndHitsOnTopReverse) {
    struct Case {
        int side;
        Vector velocity;
        Vector otherVelocity;
        Vector after;
    } cases[] = {
        {SIDE_RIGHT, {6, 1}, {0, 0}, {-3, 1}}, {SIDE_LEFT, {-6, 0}, {0, 0}, {3, 0}},
        {SIDE_RIGHT, {2, 0}, {-4, 0}, {1, 0}}, {SIDE_TOP, {1, -3}, {0, 5}, {1, 3}},
        {7, {1, 2}, {3, 4}, {1, 2}},
    };
    for (const Case& c : cases) {
        RealBody body;
        RealBody other;
        body.setVelocity(c.velocity);
        other.setVelocity(c.otherVelocity);
        body.handleCollision(c.side, &other);
        EXPECT_FLOAT_EQ(body.getVelocity().x, c.after.x) << "side " << c.side;
        EXPECT_FLOAT_EQ(body.getVelocity().y, c.after.y) << "side " << c.side;
        EXPECT_TRUE(body.isFree());
    }
}

TEST(RealBody, ForcesAndMomentaAreDividedByTheMass) {
    RealBody body;
    body.setMass(4);
    body.addForce(Vector(2, -8));
    body.addMomentum(Vector(10, 0.2f));
    EXPECT_FLOAT_EQ(body.getAcceleration().x, 0.5f);
    EXPECT_FLOAT_EQ(body.getAcceleration().y, -2.0f);
    EXPECT_FLOAT_EQ(body.getVelocity().x, 2.5f);
    EXPECT_FLOAT_EQ(body.getVelocity().y, 0.0f);  // 0.05 is snapped away
}

TEST(RealBody, LandingOnABodyMakesARiderAndReleaseDropsThemAll) {
    RealBody carrier;
    RealBody first;
    RealBody second;
    first.handleCollision(SIDE_BOTTOM, &carrier);
    second.handleCollision(SIDE_BOTTOM, &carrier);
    ASSERT_EQ(carrier.getRiders(), (std::vector<RealBody*>{&first, &second}));
    carrier.releaseRoad();
    EXPECT_TRUE(carrier.getRiders().empty());
    for (RealBody* rider : {&first, &second}) {
        EXPECT_TRUE(rider->isFree());
        EXPECT_EQ(rider->getBoard(), nullptr);
    }
}

TEST(RealBody, ReleasingARoadDropsARiderThatHasSinceLandedElsewhere) {
    RealBody oldBoard;
    RealBody newBoard;
    RealBody rider;
    rider.handleCollision(SIDE_BOTTOM, &oldBoard);
    rider.setFree(true);  // walked off
    rider.handleCollision(SIDE_BOTTOM, &newBoard);
    oldBoard.releaseRoad();
    EXPECT_TRUE(rider.isFree());
    EXPECT_EQ(rider.getBoard(), nullptr);
}

class RealBodyDeletion : public GrevanTest::HeadlessGameTest {};

TEST_F(RealBodyDeletion, DeletedBoardOfAnyKindLeavesItsRidersFree) {
    for (bool boardIsBody : {true, false}) {
        Object* board = boardIsBody ? makeBody(0, 100, 100, 10) : makeBlock(0, 100, 100, 10);
        std::unique_ptr<RealBody> rider(makeBody(10, 91, 10, 10));
        std::unique_ptr<RealBody> bystander(makeBody(50, 91, 10, 10));
        rider->handleCollision(SIDE_BOTTOM, board);
        bystander->setBoard(board);
        delete board;
        EXPECT_EQ(rider->getBoard(), nullptr) << boardIsBody;
        EXPECT_TRUE(rider->isFree());
        EXPECT_EQ(bystander->getBoard(), nullptr) << boardIsBody;
    }
}

TEST_F(RealBodyDeletion, DeletedRiderLeavesEveryRidersListItWasOn) {
    std::unique_ptr<RealBody> oldBoard(makeBody(0, 100, 100, 10));
    std::unique_ptr<RealBody> newBoard(makeBody(200, 100, 100, 10));
    RealBody* rider = makeBody(10, 91, 10, 10);
    rider->handleCollision(SIDE_BOTTOM, oldBoard.get());
    rider->setFree(true);
    rider->handleCollision(SIDE_BOTTOM, newBoard.get());
    rider->handleCollision(SIDE_BOTTOM, newBoard.get());
    delete rider;
    EXPECT_TRUE(oldBoard->getRiders().empty());
    EXPECT_TRUE(newBoard->getRiders().empty());
    // Neither touches the deleted rider any more (AddressSanitizer watches).
    oldBoard->releaseRoad();
    newBoard.reset();
}

TEST_F(RealBodyDeletion, ReapingAndSweepingAwayKeepEveryLinkValid) {
    blocks().initialize(1000, 600);
    Object* floor = makeBlock(0, 500, 1000, 20);
    RealBody* crate = makeBody(100, 461, 40, 40);
    RealBody* rider = makeBody(110, 442, 20, 20);
    objects().addObject(floor);
    objects().addObject(crate);
    objects().addObject(rider);
    crate->handleCollision(SIDE_BOTTOM, floor);
    rider->handleCollision(SIDE_BOTTOM, crate);
    // The aiming sight is a body that is never registered.
    RealBody outsider;
    outsider.handleCollision(SIDE_BOTTOM, floor);

    crate->die();
    objects().removeDeadObjects();
    EXPECT_EQ(rider->getBoard(), nullptr);
    EXPECT_TRUE(rider->isFree());
    for (int frame = 0; frame < 60; ++frame) {
        objects().moveObjects();
        objects().removeDeadObjects();
    }
    EXPECT_EQ(rider->getBoard(), floor);
    EXPECT_EQ(rider->getY(), 500 - 20 + 1);

    objects().cleanupObjects();
    EXPECT_EQ(outsider.getBoard(), nullptr);
    EXPECT_TRUE(outsider.isFree());
}

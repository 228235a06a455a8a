#include "world/RealBody.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

#include "support/Probe.h"
#include "support/TestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using Grevan::SIDE_BOTTOM;
using GrevanTest::isNear;
using GrevanTest::makeBody;

namespace {

// A board whose friction constant is its own.
class Ice : public Object {
  public:
    explicit Ice(float friction) { frictionConstant = friction; }
};

TEST(RealBody, AFreeBodyGainsGravityEachFrameUpToTheSpeedCapAndForcesAreDividedByTheMass) {
    RealBody body;
    body.setAcceleration(Vector(1.0f, -3.0f));
    body.move();
    EXPECT_TRUE(isNear(body.getVelocity(), {1.0f, -3.0f})) << "the old acceleration acted on this frame";
    // Gravity is set, not added: any other acceleration of a free body is replaced.
    EXPECT_TRUE(isNear(body.getAcceleration(), {0, 0.12f}));
    body.setVelocity(Vector());
    for (int frame = 1; frame <= 70; ++frame) {
        body.move();
        EXPECT_NEAR(body.getVelocity().y, std::min(0.12f * frame, 8.0f), 1e-4) << frame;
    }
    RealBody heavy;
    heavy.setMass(4);
    heavy.addForce(Vector(2, -8));
    heavy.addMomentum(Vector(10, 0.2f));
    EXPECT_TRUE(isNear(heavy.getAcceleration(), {0.5f, -2.0f}));
    EXPECT_TRUE(isNear(heavy.getVelocity(), {2.5f, 0.0f})) << "0.05 is snapped away";
}

TEST(RealBody, StandingFrictionComesFromTheBoardAndSlowsToExactlyZeroWithoutChangingSign) {
    EXPECT_EQ(RealBody().getSlidingFriction(), 0.0f) << "before the first landing";
    // The board's friction constant, the speed, the speeds of the first frames. Less than a frame's
    // friction stops rather than turns; what friction leaves is snapped away by the next sum.
    const std::tuple<float, float, std::vector<float>> cases[] = {{1.0f, 0.05f, {0.0f}},
                                                                  {1.0f, -3.0f, {-2.88f, -2.76f, -2.64f}},
                                                                  {0.5f, 3.0f, {2.94f, 2.88f}},
                                                                  {1.0f, -0.11f, {0.0f}},
                                                                  {1.0f, 0.15f, {0.03f, 0.0f}}};
    for (const auto& [boardFriction, vx, next] : cases) {
        Ice board(boardFriction);
        RealBody body;
        body.handleCollision(SIDE_BOTTOM, &board);
        EXPECT_FLOAT_EQ(body.getSlidingFriction(), boardFriction * 0.12f);
        body.setVelocity(Vector(vx, 0));
        for (float expected : next) {
            body.move();
            EXPECT_NEAR(body.getVelocity().x, expected, 1e-4) << "from " << vx;
        }
        for (int frame = 0; frame < 60; ++frame) {
            body.move();
        }
        EXPECT_EQ(body.getVelocity().x, 0.0f) << "from " << vx;
    }
}

TEST(RealBody, LandingBouncesOnlyWhenBouncyAndStrictlyFasterThanTheLimit) {
    const std::tuple<bool, float, float> cases[] = {
        {true, 4.0f, -2.0f}, {true, 1.0f, 0.0f}, {false, 4.0f, 0.0f}};
    for (auto [bouncy, vy, vyAfter] : cases) {
        const bool lands = vyAfter == 0.0f;
        Object floor;
        RealBody body;
        body.setBouncy(bouncy);
        body.setVelocity(Vector(2.0f, vy));
        body.setAcceleration(Vector(0, RealBody::kGravity));
        body.handleCollision(SIDE_BOTTOM, &floor);
        EXPECT_TRUE(isNear(body.getVelocity(), {2.0f, vyAfter})) << vy;
        EXPECT_TRUE(isNear(body.getAcceleration(), {0, lands ? 0.0f : RealBody::kGravity})) << vy;
        EXPECT_EQ(std::make_pair(body.getBoard(), body.isFree()),
                  std::make_pair(lands ? &floor : nullptr, !lands));
    }
}

TEST(RealBody, HitsOnTheSidesAverageAndReverseAndHitsOnTopReverse) {
    // The side of the body that touched, its velocity, the other's, its velocity afterwards.
    const std::tuple<int, Vector, Vector, Vector> cases[] = {{Grevan::SIDE_RIGHT, {6, 1}, {0, 0}, {-3, 1}},
                                                             {Grevan::SIDE_LEFT, {2, 0}, {-4, 0}, {1, 0}},
                                                             {Grevan::SIDE_TOP, {1, -3}, {0, 5}, {1, 3}},
                                                             {7, {1, 2}, {3, 4}, {1, 2}}};
    for (auto [side, velocity, otherVelocity, after] : cases) {
        RealBody body;
        RealBody other;
        body.setVelocity(velocity);
        other.setVelocity(otherVelocity);
        body.handleCollision(side, &other);
        EXPECT_TRUE(isNear(body.getVelocity(), after)) << "side " << side;
    }
}

TEST(RealBody, ABodyIsNotPushedByItsBoardAndIsSetFreeWhenItLeavesIt) {
    Probe board(0, 100, 100, 20);
    std::unique_ptr<RealBody> body(makeBody(10, 80, 10, 30));  // ten pixels into its board
    body->handleCollision(SIDE_BOTTOM, &board);
    EXPECT_TRUE(body->collide(&board));
    EXPECT_EQ(body->getY(), 80);
    body->setX(150);  // walked off the edge
    EXPECT_FALSE(body->collide(&board));
    EXPECT_TRUE(body->isFree() && !body->getBoard());
}

TEST(RealBody, LandingOnABodyMakesARiderAndReleaseDropsEvenThoseThatLandedElsewhere) {
    RealBody carrier, first, second, elsewhere;
    first.handleCollision(SIDE_BOTTOM, &carrier);
    second.handleCollision(SIDE_BOTTOM, &carrier);
    ASSERT_EQ(carrier.getRiders(), (std::vector<RealBody*>{&first, &second}));
    second.setFree(true);  // walked off onto another body
    second.handleCollision(SIDE_BOTTOM, &elsewhere);
    carrier.releaseRoad();
    EXPECT_TRUE(carrier.getRiders().empty());
    for (RealBody* rider : {&first, &second}) {
        EXPECT_TRUE(rider->isFree() && !rider->getBoard());
    }
}

TEST(RealBodyDeletion, DeletingABoardOrARiderLeavesNoLinkToIt) {
    for (bool boardIsBody : {true, false}) {
        Object* board =
            boardIsBody ? static_cast<Object*>(makeBody(0, 100, 100, 10)) : new Probe(0, 100, 100, 10);
        RealBody rider;
        rider.handleCollision(SIDE_BOTTOM, board);
        delete board;
        EXPECT_TRUE(rider.isFree() && !rider.getBoard()) << boardIsBody;
    }
    // A rider that left one body and landed twice on another leaves both riders lists.
    RealBody oldBoard, newBoard;
    RealBody* rider = new RealBody();
    rider->handleCollision(SIDE_BOTTOM, &oldBoard);
    rider->setFree(true);
    rider->handleCollision(SIDE_BOTTOM, &newBoard);
    rider->handleCollision(SIDE_BOTTOM, &newBoard);
    delete rider;
    EXPECT_TRUE(oldBoard.getRiders().empty() && newBoard.getRiders().empty());
    oldBoard.releaseRoad();  // touches no deleted rider (AddressSanitizer watches), nor does ~RealBody
}

}  // namespace

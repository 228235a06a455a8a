#include "world/Object.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>
#include <vector>

#include "support/Probe.h"
#include "support/TestSupport.h"

using Grevan::Object;
using GrevanTest::isNear;

namespace {

TEST(Vector, SumSnapsComponentsStrictlyBelowOneTenthToZeroButScalingDoesNot) {
    const std::tuple<Vector, Vector, Vector> cases[] = {{{0, 0}, {-0.1f, 0}, {-0.1f, 0}},
                                                        {{0, 0}, {0.099f, 0.1f}, {0, 0.1f}},
                                                        {{1, -2}, {-0.95f, 2.05f}, {0, 0}}};
    for (auto [a, b, sum] : cases) {
        EXPECT_TRUE(isNear(a + b, sum));
    }
    Vector scaled(0.5f, 0.2f);
    scaled *= 0.1f;
    EXPECT_FLOAT_EQ(scaled.x, 0.05f);
}

TEST(Object, PixelsRoundHalfUpThenTruncateTowardZeroAndTheRectangleIsOnePastThePicture) {
    const std::pair<float, int> cases[] = {{2.5f, 3}, {2.49f, 2}, {-0.7f, 0}, {-1.2f, 0}, {-1.6f, -1}};
    for (auto [position, pixel] : cases) {
        Probe o(0, 0, 5, 7);
        o.setPosition(Vector(position, position));
        EXPECT_EQ(*o.getRectangle(), (Rect{pixel, pixel + 5, pixel, pixel + 7})) << position;
        EXPECT_EQ(o.getCentralX(), pixel + 2) << position;
        EXPECT_EQ(o.getCentralY(), pixel + 3) << position;
    }
}

TEST(Object, MoveAddsVelocityThenAccelerationAndCapsTheSpeed) {
    const std::tuple<Vector, Vector, Vector> cases[] = {
        {{6, 8}, {0, 0}, {4.8f, 6.4f}}, {{-12, 0}, {0, 0}, {-8, 0}}, {{0, 0}, {0, 0.5f}, {0, 0.5f}}};
    for (auto [velocity, acceleration, velocityAfter] : cases) {
        Object o;
        o.setVelocity(velocity);
        o.setAcceleration(acceleration);
        o.move();
        EXPECT_TRUE(isNear(o.getPosition(), velocity)) << "moved by the velocity before it changes";
        EXPECT_TRUE(isNear(o.getVelocity(), velocityAfter));
    }
}

TEST(Object, CollisionPushesOnlyTheMoverAlongTheShallowerAxis) {
    // B is a 20 x 20 block at (100, 100); A is placed around it. The case, A's place and width, the
    // sides told to A and to B, A's position afterwards.
    const std::tuple<const char*, int, int, int, std::vector<int>, std::vector<int>, int, int> cases[] = {
        {"touching side by side (one-pixel overlap)", 90, 100, 10, {}, {}, 90, 100},
        {"resting with one pixel overlap", 100, 81, 20, {}, {}, 100, 81},
        {"from the left", 85, 100, 20, {0}, {1}, 79, 100},
        {"from the right", 115, 100, 20, {1}, {0}, 121, 100},
        {"landing from above keeps one pixel", 100, 85, 20, {3}, {2}, 100, 81},
        {"hitting from below", 100, 115, 20, {2}, {3}, 100, 121},
        {"tie resolves horizontally", 115, 115, 20, {1}, {0}, 121, 115},
    };
    for (const auto& [name, ax, ay, aw, aSides, bSides, x, y] : cases) {
        SCOPED_TRACE(name);
        Probe a(ax, ay, aw, 20);
        Probe b(100, 100, 20, 20);
        a.setVelocity(Vector(5, 1));
        EXPECT_EQ(a.collide(&b), !aSides.empty());
        EXPECT_EQ(*a.getRectangle(), (Rect{x, x + aw, y, y + 20}));
        EXPECT_EQ(b.getX(), 100);
        EXPECT_EQ(std::make_pair(a.sides, b.sides), std::make_pair(aSides, bSides));
        EXPECT_TRUE(isNear(a.getVelocity(), {5, 1})) << "velocities are left to the classes";
    }
}

TEST(Object, IdsAreUniqueAndNeverReused) {
    Object kept;
    std::set<int> ids{kept.getId()};
    for (int i = 0; i < 100; i++) {
        EXPECT_TRUE(ids.insert(Object().getId()).second) << "made after others were deleted";
    }
}

}  // namespace

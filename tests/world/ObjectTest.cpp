#include "world/Object.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "support/Probe.h"
#include "support/TestSupport.h"

using Grevan::Object;
using GrevanTest::isNear;

namespace {

TEST(Vector, SumSnapsComponentsStrictlyBelowOneTenthToZeroButScalingDoesNot) {
    struct Case {
        Vector a, b, sum;
    } cases[] = {{{0, 0}, {0.05f, 3}, {0, 3}},
                 {{0, 0}, {-0.1f, 0}, {-0.1f, 0}},
                 {{0, 0}, {0.099f, 0.1f}, {0, 0.1f}},
                 {{1, -2}, {-0.95f, 2.05f}, {0, 0}}};
    for (const Case& c : cases) {
        Vector accumulated = c.a;
        accumulated += c.b;
        EXPECT_TRUE(isNear(c.a + c.b, c.sum));
        EXPECT_TRUE(isNear(accumulated, c.sum));
    }
    Vector scaled(0.5f, 0.2f);
    scaled *= 0.1f;
    EXPECT_FLOAT_EQ(scaled.x, 0.05f);
    EXPECT_FLOAT_EQ(Vector(6, 8).getMagnitude(), 10.0f);
}

TEST(Object, GetXRoundsHalfUpThenTruncatesTowardZero) {
    struct Case {
        float position;
        int expected;
    } cases[] = {{2.5f, 3}, {2.49f, 2}, {-0.7f, 0}, {-1.2f, 0}, {-1.6f, -1}};
    for (const Case& c : cases) {
        Object o;
        o.setPosition(Vector(c.position, c.position));
        EXPECT_EQ(o.getX(), c.expected) << c.position;
        EXPECT_EQ(o.getY(), c.expected) << c.position;
    }
}

TEST(Object, MoveAddsVelocityThenAccelerationAndCapsTheSpeed) {
    struct Case {
        Vector velocity, expected;
    } cases[] = {{{6, 8}, {4.8f, 6.4f}}, {{0, 8}, {0, 8}}, {{-12, 0}, {-8, 0}}};
    for (const Case& c : cases) {
        Object o;
        o.setVelocity(c.velocity);
        o.move();
        EXPECT_TRUE(isNear(o.getVelocity(), c.expected));
        EXPECT_TRUE(isNear(o.getPosition(), c.velocity)) << "moved by the velocity before the cap";
    }
    Object falling;
    falling.setAcceleration(Vector(0, 0.5f));
    falling.move();
    EXPECT_TRUE(isNear(falling.getPosition(), {0, 0})) << "position first, then velocity";
    EXPECT_TRUE(isNear(falling.getVelocity(), {0, 0.5f}));
}

TEST(Object, RectangleIsOnePastThePicture) {
    Probe o(10, 20, 5, 7);
    EXPECT_EQ(*o.getRectangle(), (Rect{10, 15, 20, 27}));
    EXPECT_EQ(o.getCentralX(), 12);
    EXPECT_EQ(o.getCentralY(), 23);
}

TEST(Object, CollisionPushesOnlyTheMoverAlongTheShallowerAxis) {
    // B is a 20 x 20 block at (100, 100); A is placed around it.
    struct Case {
        const char* name;
        int ax, ay, aw;
        std::vector<int> aSides, bSides;  // told to A and B
        int x, y;                         // A's position afterwards
    } cases[] = {
        {"touching side by side (one-pixel overlap)", 90, 100, 10, {}, {}, 90, 100},
        {"resting with one pixel overlap", 100, 81, 20, {}, {}, 100, 81},
        {"from the left", 85, 100, 20, {0}, {1}, 79, 100},
        {"from the right", 115, 100, 20, {1}, {0}, 121, 100},
        {"landing from above keeps one pixel", 100, 85, 20, {3}, {2}, 100, 81},
        {"hitting from below", 100, 115, 20, {2}, {3}, 100, 121},
        {"tie resolves horizontally", 115, 115, 20, {1}, {0}, 121, 115},
    };
    for (const Case& c : cases) {
        Probe a(c.ax, c.ay, c.aw, 20);
        Probe b(100, 100, 20, 20);
        a.setVelocity(Vector(5, 1));
        EXPECT_EQ(a.collide(&b), !c.aSides.empty()) << c.name;
        EXPECT_EQ(*a.getRectangle(), (Rect{c.x, c.x + c.aw, c.y, c.y + 20})) << c.name;
        EXPECT_EQ(b.getX(), 100) << c.name;
        EXPECT_EQ(a.sides, c.aSides) << c.name;
        EXPECT_EQ(b.sides, c.bSides) << c.name;
        EXPECT_TRUE(isNear(a.getVelocity(), {5, 1})) << "velocities are left to the classes";
    }
}

TEST(Object, IdsCountFromOneAndAreNeverReused) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // A fresh process, in which these are the first objects ever made.
    EXPECT_EXIT(
        {
            Object first;
            Object second;
            std::exit(first.getId() == 1 && second.getId() == 2 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    int gone = Object().getId();
    EXPECT_EQ(Object().getId(), gone + 1);
}

}  // namespace

#include "world/Object.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include "support/TestSupport.h"

using Grevan::Object;

namespace {

// An object that records the sides it is told about.
class RecordingObject : public Object {
  public:
    RecordingObject(int x, int y, int w, int h) {
        setX(x);
        setY(y);
        setWidth(w);
        setHeight(h);
    }
    void handleCollision(int side, Object*) override { sides.push_back(side); }
    std::vector<int> sides;
};

TEST(Vector, SumSnapsComponentsStrictlyBelowOneTenthToZeroButScalingDoesNot) {
    struct Case {
        Vector a, b, sum;
    } cases[] = {
        {{0, 0}, {0.05f, 3}, {0, 3}}, {{0, 0}, {-0.1f, 0}, {-0.1f, 0}}, {{1, -2}, {-0.95f, 2.05f}, {0, 0}}};
    for (const Case& c : cases) {
        Vector accumulated = c.a;
        accumulated += c.b;
        for (Vector v : {c.a + c.b, accumulated}) {
            EXPECT_FLOAT_EQ(v.x, c.sum.x);
            EXPECT_FLOAT_EQ(v.y, c.sum.y);
        }
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
        EXPECT_FLOAT_EQ(o.getVelocity().x, c.expected.x);
        EXPECT_FLOAT_EQ(o.getVelocity().y, c.expected.y);
        EXPECT_FLOAT_EQ(o.getPosition().x, c.velocity.x) << "moved by the velocity before the cap";
    }
    Object falling;
    falling.setAcceleration(Vector(0, 0.5f));
    falling.move();
    EXPECT_FLOAT_EQ(falling.getPosition().y, 0.0f) << "position first, then velocity";
    EXPECT_FLOAT_EQ(falling.getVelocity().y, 0.5f);
}

TEST(Object, RectangleIsOnePastThePicture) {
    std::unique_ptr<Object> o(GrevanTest::makeBlock(10, 20, 5, 7));
    EXPECT_EQ(*o->getRectangle(), (Rect{10, 15, 20, 27}));
    EXPECT_EQ(o->getCentralX(), 12);
    EXPECT_EQ(o->getCentralY(), 23);
}

TEST(Object, CollisionPushesOnlyTheMoverAlongTheShallowerAxis) {
    // B is a 20 x 20 block at (100, 100); A is placed around it.
    struct Case {
        const char* name;
        int ax, ay, aw;
        bool collides;
        int aSide, bSide;  // sides told to A and B
        int x, y;          // A's position afterwards
    } cases[] = {
        {"touching side by side (one-pixel overlap)", 90, 100, 10, false, -1, -1, 90, 100},
        {"resting with one pixel overlap", 100, 81, 20, false, -1, -1, 100, 81},
        {"from the left", 85, 100, 20, true, 0, 1, 79, 100},
        {"from the right", 115, 100, 20, true, 1, 0, 121, 100},
        {"landing from above keeps one pixel", 100, 85, 20, true, 3, 2, 100, 81},
        {"hitting from below", 100, 115, 20, true, 2, 3, 100, 121},
        {"tie resolves horizontally", 115, 115, 20, true, 1, 0, 121, 115},
    };
    for (const Case& c : cases) {
        RecordingObject a(c.ax, c.ay, c.aw, 20);
        RecordingObject b(100, 100, 20, 20);
        a.setVelocity(Vector(5, 1));
        EXPECT_EQ(a.collide(&b), c.collides) << c.name;
        EXPECT_EQ(a.getX(), c.x) << c.name;
        EXPECT_EQ(a.getY(), c.y) << c.name;
        EXPECT_EQ(b.getX(), 100) << c.name;
        EXPECT_EQ(a.sides, c.collides ? std::vector<int>{c.aSide} : std::vector<int>{}) << c.name;
        EXPECT_EQ(b.sides, c.collides ? std::vector<int>{c.bSide} : std::vector<int>{}) << c.name;
        EXPECT_FLOAT_EQ(a.getVelocity().x, 5.0f) << "velocities are left to the classes";
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
    int previous;
    {
        Object gone;
        previous = gone.getId();
    }
    Object next;
    EXPECT_EQ(next.getId(), previous + 1);
}

}  // namespace

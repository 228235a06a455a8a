#include "world/Object.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

using Grevan::Object;

namespace {

// An object that records the collisions it is told about.
class RecordingObject : public Object {
  public:
    RecordingObject(int x, int y, int w, int h) {
        setX(x);
        setY(y);
        setWidth(w);
        setHeight(h);
    }
    void handleCollision(int side, Object* other) override { sides.push_back({side, other}); }
    void setPositionX(float x) {
        Vector p = getPosition();
        p.x = x;
        setPosition(p);
    }

    struct Hit {
        int side;
        Object* other;
    };
    std::vector<Hit> sides;
};

}  // namespace

TEST(Object, GetXRoundsHalfUpThenTruncatesTowardZero) {
    struct Case {
        float position;
        int expected;
    } cases[] = {{2.5f, 3}, {2.49f, 2}, {-0.7f, 0}, {-1.2f, 0}, {-1.6f, -1}, {0.0f, 0}, {7.5f, 8}};
    for (const Case& c : cases) {
        Object o;
        o.setPosition(Vector(c.position, c.position));
        EXPECT_EQ(o.getX(), c.expected) << c.position;
        EXPECT_EQ(o.getY(), c.expected) << c.position;
    }
}

TEST(Object, MoveAddsVelocityThenAccelerationAndCapsTheSpeed) {
    struct Case {
        Vector velocity;
        Vector expected;
    } cases[] = {
        {{6, 8}, {4.8f, 6.4f}},  // magnitude 10, scaled down to 8
        {{0, 8}, {0, 8}},        // exactly the maximum: left alone
        {{-12, 0}, {-8, 0}},
        {{3, 4}, {3, 4}},
    };
    for (const Case& c : cases) {
        Object o;
        o.setVelocity(c.velocity);
        o.move();
        EXPECT_FLOAT_EQ(o.getVelocity().x, c.expected.x);
        EXPECT_FLOAT_EQ(o.getVelocity().y, c.expected.y);
        // The position moved by the velocity before the cap.
        EXPECT_FLOAT_EQ(o.getPosition().x, c.velocity.x);
    }

    Object falling;
    falling.setAcceleration(Vector(0, 0.5f));
    falling.move();
    EXPECT_FLOAT_EQ(falling.getPosition().y, 0.0f);  // position first, then velocity
    EXPECT_FLOAT_EQ(falling.getVelocity().y, 0.5f);
    falling.move();
    EXPECT_FLOAT_EQ(falling.getPosition().y, 0.5f);
}

TEST(Object, RectangleIsOnePastThePicture) {
    Object o;
    o.setX(10);
    o.setY(20);
    o.setWidth(5);
    o.setHeight(7);
    Rect expected{10, 15, 20, 27};
    EXPECT_EQ(*o.getRectangle(), expected);
    EXPECT_EQ(o.getCentralX(), 12);
    EXPECT_EQ(o.getCentralY(), 23);
}

TEST(Object, CollisionResolution) {
    // B is a 20 x 20 block at (100, 100); A is placed around it.
    struct Case {
        const char* name;
        int ax, ay, aw, ah;
        bool collides;
        int aSide, bSide;  // sides told to A and B
        int x, y;          // A's position afterwards
    } cases[] = {
        {"touching side by side (one-pixel overlap)", 90, 100, 10, 20, false, -1, -1, 90, 100},
        {"touching from above", 100, 80, 20, 20, false, -1, -1, 100, 80},
        {"resting with one pixel overlap", 100, 81, 20, 20, false, -1, -1, 100, 81},
        {"from the left", 85, 100, 20, 20, true, 0, 1, 79, 100},
        {"from the right", 115, 100, 20, 20, true, 1, 0, 121, 100},
        {"landing from above", 100, 85, 20, 20, true, 3, 2, 100, 81},
        {"hitting from below", 100, 115, 20, 20, true, 2, 3, 100, 121},
        {"tie resolves horizontally", 115, 115, 20, 20, true, 1, 0, 121, 115},
    };
    for (const Case& c : cases) {
        RecordingObject a(c.ax, c.ay, c.aw, c.ah);
        RecordingObject b(100, 100, 20, 20);
        EXPECT_EQ(a.collide(&b), c.collides) << c.name;
        EXPECT_EQ(a.getX(), c.x) << c.name;
        EXPECT_EQ(a.getY(), c.y) << c.name;
        EXPECT_EQ(b.getX(), 100) << c.name << ": only A moves";
        if (c.collides) {
            ASSERT_EQ(a.sides.size(), 1u) << c.name;
            ASSERT_EQ(b.sides.size(), 1u) << c.name;
            EXPECT_EQ(a.sides[0].side, c.aSide) << c.name;
            EXPECT_EQ(a.sides[0].other, &b) << c.name;
            EXPECT_EQ(b.sides[0].side, c.bSide) << c.name;
            EXPECT_EQ(b.sides[0].other, &a) << c.name;
        } else {
            EXPECT_TRUE(a.sides.empty()) << c.name;
            EXPECT_TRUE(b.sides.empty()) << c.name;
        }
    }
}

TEST(Object, CollisionLeavesVelocitiesToTheClasses) {
    RecordingObject a(85, 100, 20, 20);
    a.setVelocity(Vector(5, 1));
    RecordingObject b(100, 100, 20, 20);
    ASSERT_TRUE(a.collide(&b));
    EXPECT_FLOAT_EQ(a.getVelocity().x, 5.0f);
    EXPECT_FLOAT_EQ(a.getVelocity().y, 1.0f);
}

TEST(Object, IdsCountFromOneAndAreNeverReused) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // A fresh process, in which this is the first object ever made.
    EXPECT_EXIT(
        {
            Object first;
            Object second;
            std::exit(first.getId() == 1 && second.getId() == 2 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");

    int previous = 0;
    for (int i = 0; i < 3; ++i) {
        Object o;
        EXPECT_GT(o.getId(), previous);
        previous = o.getId();
    }
    Object next;
    EXPECT_EQ(next.getId(), previous + 1);
}

#include "world/Vector.h"

#include <gtest/gtest.h>

TEST(Vector, SumSnapsComponentsStrictlyBelowOneTenthToZero) {
    struct Case {
        Vector a, b;
        float x, y;
    } cases[] = {
        {{0, 0}, {0.05f, 3}, 0.0f, 3.0f},
        {{0, 0}, {-0.1f, 0}, -0.1f, 0.0f},
        {{1.0f, -2.0f}, {-0.95f, 2.05f}, 0.0f, 0.0f},
        {{0.3f, 0.2f}, {0.3f, -0.15f}, 0.6f, 0.0f},
    };
    for (const Case& c : cases) {
        Vector sum = c.a + c.b;
        EXPECT_FLOAT_EQ(sum.x, c.x);
        EXPECT_FLOAT_EQ(sum.y, c.y);
        Vector accumulated = c.a;
        accumulated += c.b;
        EXPECT_FLOAT_EQ(accumulated.x, c.x);
        EXPECT_FLOAT_EQ(accumulated.y, c.y);
    }
}

TEST(Vector, ScalingDoesNotSnap) {
    Vector v(0.5f, 0.2f);
    v *= 0.1f;
    EXPECT_FLOAT_EQ(v.x, 0.05f);
    EXPECT_FLOAT_EQ(v.y, 0.02f);
    EXPECT_FLOAT_EQ(Vector(6, 8).getMagnitude(), 10.0f);
}

#include "actors/FrontSight.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/HeadlessGame.h"

using Grevan::FrontSight;

namespace {

TEST(FrontSight, KicksWidenTheArmsUntilPastTheMaximumAndMovesCloseThemByTwo) {
    FrontSight sight;
    struct Step {
        bool kick;  // jump(30), else move()
        int divergence;
    } steps[] = {{true, 35}, {true, 65}, {true, 65}, {false, 63}, {false, 61}};
    for (const Step& s : steps) {
        if (s.kick) {
            sight.jump(30);
        } else {
            sight.move();
        }
        EXPECT_EQ(sight.getDivergence(), s.divergence);
    }
    // From an even divergence the arms close to 4, one below the resting 5.
    sight.setDivergence(8);
    sight.move();
    sight.move();
    EXPECT_EQ(sight.getDivergence(), 4);
    sight.move();
    EXPECT_EQ(sight.getDivergence(), 4);
}

TEST(FrontSight, KickMomentumTakesTheSecondDrawForXAndTheFirstForY) {
    struct Case {
        unsigned seed;
        int strength;
    } cases[] = {{1, 30}, {99, 20}, {12345, 1}, {7, 0}};
    for (const Case& c : cases) {
        srand(c.seed);
        int first = rand();
        int second = rand();
        int span = 2 * c.strength + 1;
        FrontSight sight;
        srand(c.seed);
        sight.jump(c.strength);
        EXPECT_FLOAT_EQ(sight.getVelocity().x, static_cast<float>(second % span - c.strength)) << c.seed;
        EXPECT_FLOAT_EQ(sight.getVelocity().y, static_cast<float>(first % span - c.strength)) << c.seed;
        EXPECT_EQ(sight.getDivergence(), 5 + c.strength);
    }
}

TEST(FrontSight, MovingFastDrawsARandomBrakeAndRestingKeepsTheLastOne) {
    FrontSight sight;
    sight.setVelocity(Vector(4.0f, -2.0f));
    srand(5);
    int brakeX = rand() % 100;
    int brakeY = rand() % 100;
    srand(5);
    sight.move();
    EXPECT_FLOAT_EQ(sight.getAcceleration().x, brakeX * -4.0f / 100);
    EXPECT_FLOAT_EQ(sight.getAcceleration().y, brakeY * 2.0f / 100);
    EXPECT_FLOAT_EQ(sight.getPosition().x, 4.0f);

    struct Case {
        float vx, vy;
        bool keeps;
    } cases[] = {{0.1f, -0.1f, true}, {0.0f, 0.0f, true}, {0.11f, 0.0f, false}, {0.0f, -0.2f, false}};
    for (const Case& c : cases) {
        FrontSight resting;
        resting.setAcceleration(Vector(0.5f, 0.5f));
        resting.setVelocity(Vector(c.vx, c.vy));
        resting.move();
        bool kept = resting.getAcceleration().x == 0.5f && resting.getAcceleration().y == 0.5f;
        EXPECT_EQ(kept, c.keeps) << c.vx << ", " << c.vy;
    }
}

using FrontSightDrawing = HeadlessGame;

TEST_F(FrontSightDrawing, ArmsAreSixPixelsBeyondTheDivergenceAndTheCentreStaysEmpty) {
    BITMAP* target = create_bitmap(100, 100);
    clear_to_color(target, 0);
    FrontSight sight;
    sight.setX(50);
    sight.setY(40);
    sight.setDivergence(10);
    sight.draw(target);
    int green = makecol(0, 255, 0);
    struct Case {
        int x, y;
        bool drawn;
    } cases[] = {
        {50, 40, false}, {41, 40, false}, {40, 40, true},  {34, 40, true},  {33, 40, false},
        {60, 40, true},  {66, 40, true},  {67, 40, false}, {50, 30, true},  {50, 24, true},
        {50, 23, false}, {50, 56, true},  {50, 57, false}, {45, 40, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(getpixel(target, c.x, c.y) == green, c.drawn) << c.x << ", " << c.y;
    }
    destroy_bitmap(target);
}

}  // namespace

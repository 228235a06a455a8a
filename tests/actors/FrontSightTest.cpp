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
    for (int i = 0; i < 3; i++) {
        sight.move();
    }
    EXPECT_EQ(sight.getDivergence(), 4);
}

TEST(FrontSight, KickMomentumTakesTheSecondDrawForXAndTheFirstForY) {
    for (int strength : {30, 1, 0}) {
        srand(99);
        int first = rand();
        int second = rand();
        FrontSight sight;
        srand(99);
        sight.jump(strength);
        EXPECT_FLOAT_EQ(sight.getVelocity().x, static_cast<float>(second % (2 * strength + 1) - strength));
        EXPECT_FLOAT_EQ(sight.getVelocity().y, static_cast<float>(first % (2 * strength + 1) - strength));
        EXPECT_EQ(sight.getDivergence(), 5 + strength);
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
    struct Case {
        float vx, vy;
        bool keeps;
    } cases[] = {{0.1f, -0.1f, true}, {0.11f, 0.0f, false}, {0.0f, -0.2f, false}};
    for (const Case& c : cases) {
        FrontSight resting;
        resting.setAcceleration(Vector(0.5f, 0.5f));
        resting.setVelocity(Vector(c.vx, c.vy));
        resting.move();
        EXPECT_EQ(resting.getAcceleration().x == 0.5f && resting.getAcceleration().y == 0.5f, c.keeps)
            << c.vx;
    }
}

using FrontSightDrawing = HeadlessGame;

TEST_F(FrontSightDrawing, ArmsAreSixPixelsBeyondTheDivergenceAndTheCentreStaysEmpty) {
    clear_to_color(buffer, 0);
    FrontSight sight;
    sight.setX(50);
    sight.setY(40);
    sight.setDivergence(10);
    sight.draw(buffer);
    struct Case {
        int x, y;
        bool drawn;
    } cases[] = {{50, 40, false}, {41, 40, false}, {40, 40, true},  {34, 40, true},
                 {33, 40, false}, {66, 40, true},  {67, 40, false}, {50, 30, true},
                 {50, 23, false}, {50, 56, true},  {50, 57, false}, {45, 40, false}};
    for (const Case& c : cases) {
        EXPECT_EQ(getpixel(buffer, c.x, c.y) == makecol(0, 255, 0), c.drawn) << c.x << ", " << c.y;
    }
}

}  // namespace

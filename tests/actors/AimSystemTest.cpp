#include "actors/AimSystem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <tuple>

#include "actors/FrontSight.h"
#include "support/CombatScene.h"

using Grevan::FrontSight;
using GrevanTest::isNear;

namespace {

TEST(FrontSight, KicksPushUpToTheirStrengthOnEachAxisAndWidenTheArmsUntilPastTheMaximum) {
    FrontSight sight;
    const std::pair<int, int> kicks[] = {{0, 5}, {30, 35}, {30, 65}, {30, 65}, {1, 65}};  // strength, arms
    for (auto [strength, divergence] : kicks) {
        sight.jump(strength);
        EXPECT_EQ(sight.getDivergence(), divergence);
    }
    // From an even divergence the arms close to 4, one below the resting 5.
    sight.setDivergence(8);
    for (int i = 0; i < 3; i++) {
        sight.move();
    }
    EXPECT_EQ(sight.getDivergence(), 4);
    // Each axis takes a whole push of its own, up to the strength either way.
    std::set<std::pair<float, float>> pushes;
    for (int i = 0; i < 200; i++) {
        sight.setVelocity(Vector());
        sight.jump(30);
        const Vector v = sight.getVelocity();
        EXPECT_TRUE(v.x == std::trunc(v.x) && std::fabs(v.x) <= 30 && v.y == std::trunc(v.y) &&
                    std::fabs(v.y) <= 30)
            << v.x << ", " << v.y;
        pushes.insert({v.x, v.y});
    }
    EXPECT_GT(pushes.size(), 100u);
}

// Faster than a tenth of a pixel a frame, the sight brakes on each axis by a random 0 to 99 percent
// of its velocity; slower, it keeps the last brake.
TEST(FrontSight, MovingFasterThanATenthDrawsARandomBrakeAndSlowerKeepsTheLastOne) {
    const std::tuple<float, float, bool> cases[] = {
        {4.0f, -2.0f, true}, {0.11f, 0.0f, true}, {0.0f, -0.2f, true}, {0.1f, -0.1f, false}};
    for (auto [vx, vy, brakes] : cases) {
        std::set<float> percentsX, percentsY;
        for (int i = 0; i < 200; i++) {
            FrontSight sight;
            sight.setAcceleration(Vector(0.5f, 0.5f));
            sight.setVelocity(Vector(vx, vy));
            sight.move();
            const Vector a = sight.getAcceleration();
            const float px = vx ? std::round(-a.x / vx * 100) : 0;
            const float py = vy ? std::round(-a.y / vy * 100) : 0;
            EXPECT_TRUE(brakes ? px >= 0 && px <= 99 && py >= 0 && py <= 99 &&
                                     isNear(a, {-px * vx / 100, -py * vy / 100})
                               : isNear(a, {0.5f, 0.5f}))
                << a.x << ", " << a.y;
            percentsX.insert(px);
            percentsY.insert(py);
        }
        EXPECT_EQ(std::make_pair(percentsX.size() > 50, percentsY.size() > 50),
                  std::make_pair(brakes && vx != 0, brakes && vy != 0));
    }
}

using AimSystemTest = CombatScene;

TEST_F(AimSystemTest, OnlyASightThatDriftedOffThePointerSteersItStrictlyInsideTheViewWithALiveMainPlayer) {
    Grevan::AimSystem& aim = game->getAimSystem();
    const std::tuple<int, int, bool, bool, bool, bool> cases[] = {
        {1, 1, false, true, true, true},       {0, 300, false, true, true, false},
        {800, 300, false, true, true, false},  {799, 599, false, true, true, true},
        {400, 0, false, true, true, false},    {400, 600, false, true, true, false},
        {410, 300, false, false, true, false}, {410, 300, false, true, false, false},
        {410, 300, true, true, true, false},   {399, 300, false, true, true, true},
        {400, 300, false, true, true, false},
    };  // x, y, whether the mouse put the sight there (rather than its drift from 400, 300), whether I
        // am the main player, whether I am alive, whether the sight steers the mouse
    for (auto [x, y, byMouse, main, alive, steers] : cases) {
        me->setHealth(alive ? 100 : 0);
        game->setMainPlayer(main ? me : nullptr);
        aim.setX(400);
        aim.setY(300);
        if (byMouse) {
            aim.setX(x);
            aim.setY(y);
        } else {
            aim.getSight().setX(x);
            aim.getSight().setY(y);
        }
        EXPECT_EQ(aim.steersMouse(), steers)
            << x << ", " << y << " by the mouse " << byMouse << " main " << main << " alive " << alive;
    }
    // Once steered, the pointer is where the sight is.
    aim.getSight().setX(420);
    aim.move();
    EXPECT_FALSE(aim.steersMouse());
}

TEST_F(AimSystemTest, TheFrameClosesTheArmsAndDrawsThemSixPixelsLongAroundAnEmptyCentre) {
    Grevan::AimSystem& aim = game->getAimSystem();
    aim.setX(400);
    aim.setY(300);
    aim.getSight().setDivergence(12);
    runFrames(1);
    EXPECT_EQ(aim.getSight().getDivergence(), 10);
    const std::tuple<int, int, bool> cases[] = {{400, 300, false}, {391, 300, false}, {390, 300, true},
                                                {384, 300, true},  {383, 300, false}, {416, 300, true},
                                                {417, 300, false}, {400, 290, true},  {400, 283, false},
                                                {400, 316, true},  {400, 317, false}, {395, 300, false}};
    for (auto [x, y, drawn] : cases) {
        EXPECT_EQ(getpixel(buffer, x, y) == makecol(0, 255, 0), drawn) << x << ", " << y;
    }
}

}  // namespace

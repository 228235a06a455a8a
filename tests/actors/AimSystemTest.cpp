#include "actors/AimSystem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <tuple>

#include "actors/FrontSight.h"
#include "support/CombatScene.h"

using Grevan::FrontSight;

namespace {

TEST(FrontSight, KicksPushUpToTheirStrengthOnEachAxisAndWidenTheArmsUntilPastTheMaximum) {
    FrontSight sight;
    const std::pair<int, int> kicks[] = {
        {0, 5}, {30, 35}, {30, 65}, {30, 65}, {1, 65}};  // strength, divergence
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
    // Each axis takes a whole push of its own, from -strength to strength.
    std::set<int> pushes;
    bool axesDiffer = false;
    for (int i = 0; i < 400; i++) {
        sight.setVelocity(Vector());
        sight.jump(30);
        const Vector v = sight.getVelocity();
        for (float push : {v.x, v.y}) {
            EXPECT_TRUE(push == std::trunc(push) && std::fabs(push) <= 30) << push;
            pushes.insert(static_cast<int>(push));
        }
        axesDiffer = axesDiffer || v.x != v.y;
    }
    EXPECT_GT(pushes.size(), 50u);
    EXPECT_TRUE(axesDiffer);
}

// Faster than a tenth of a pixel a frame, the sight brakes on each axis by a random 0 to 99 percent
// of its velocity; slower, it keeps the last brake.
TEST(FrontSight, MovingFasterThanATenthDrawsARandomBrakeAndSlowerKeepsTheLastOne) {
    const std::tuple<Vector, bool> cases[] = {
        {{4.0f, -2.0f}, true}, {{0.11f, 0.0f}, true}, {{0.0f, -0.2f}, true}, {{0.1f, -0.1f}, false}};
    for (auto [velocity, brakes] : cases) {       // whether it draws a brake
        std::map<float, std::set<int>> percents;  // by the speed braked
        for (int i = 0; i < 400; i++) {
            FrontSight sight;
            sight.setAcceleration(Vector(0.5f, 0.5f));
            sight.setVelocity(velocity);
            sight.move();
            const Vector brake = sight.getAcceleration();
            for (auto [speed, braking] :
                 {std::make_pair(velocity.x, brake.x), std::make_pair(velocity.y, brake.y)}) {
                const int percent = speed == 0.0f ? 0 : std::lround(-braking / speed * 100);
                EXPECT_NEAR(braking, brakes ? -percent * speed / 100 : 0.5f, 1e-5) << speed;
                EXPECT_TRUE(!brakes || (percent >= 0 && percent <= 99)) << percent;
                percents[speed].insert(percent);
            }
        }
        for (auto [speed, seen] : percents) {
            EXPECT_EQ(seen.size() > 50, brakes && speed != 0.0f) << speed;
        }
    }
}

using AimSystemTest = CombatScene;

TEST_F(AimSystemTest, TheSightSteersTheMouseOnlyStrictlyInsideTheViewWithALiveMainPlayer) {
    Grevan::AimSystem& aim = game->getAimSystem();
    const std::tuple<int, int, bool, bool, bool> cases[] = {
        {1, 1, true, true, true},       {0, 300, true, true, false},    {800, 300, true, true, false},
        {799, 599, true, true, true},   {400, 0, true, true, false},    {400, 600, true, true, false},
        {400, 300, false, true, false}, {400, 300, true, false, false},
    };  // x, y, whether I am the main player, whether I am alive, whether the sight steers the mouse
    for (auto [x, y, main, alive, steers] : cases) {
        me->setHealth(alive ? 100 : 0);
        game->setMainPlayer(main ? me : nullptr);
        aim.setX(x);
        aim.setY(y);
        EXPECT_EQ(aim.steersMouse(), steers) << x << ", " << y << " main " << main << " alive " << alive;
    }
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

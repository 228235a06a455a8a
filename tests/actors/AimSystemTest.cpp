#include "actors/AimSystem.h"

#include <gtest/gtest.h>

#include "support/CombatScene.h"

using Grevan::Player;

namespace {

using AimSystemTest = CombatScene;

TEST_F(AimSystemTest, TheSightSteersTheMouseOnlyStrictlyInsideTheViewWithALiveMainPlayer) {
    loadLevel(false);
    Player* me = addStandingPlayer(100);
    Grevan::AimSystem& aim = game->getAimSystem();
    struct Case {
        int x, y;
        bool mainPlayer, alive, steers;
    } cases[] = {
        {1, 1, true, true, true},       {0, 300, true, true, false},    {800, 300, true, true, false},
        {799, 599, true, true, true},   {400, 0, true, true, false},    {400, 600, true, true, false},
        {400, 300, false, true, false}, {400, 300, true, false, false},
    };
    for (const Case& c : cases) {
        me->setHealth(c.alive ? 100 : 0);
        game->setMainPlayer(c.mainPlayer ? me : nullptr);
        aim.setX(c.x);
        aim.setY(c.y);
        EXPECT_EQ(aim.steersMouse(), c.steers) << c.x << ", " << c.y << " main " << c.mainPlayer;
    }
}

TEST_F(AimSystemTest, TheFrameMovesTheSightAndDrawsIt) {
    Grevan::AimSystem& aim = game->getAimSystem();
    aim.setX(400);
    aim.setY(300);
    aim.jump(30);
    aim.getSight().setVelocity(Vector());
    runFrames(1);
    EXPECT_EQ(aim.getSight().getDivergence(), 33) << "the frame closes the arms";
    EXPECT_EQ(getpixel(buffer, 400 - 33 - 1, 300), makecol(0, 255, 0)) << "and draws them";
}

}  // namespace

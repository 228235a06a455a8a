#include <gtest/gtest.h>

#include <ctime>
#include <tuple>

#include "actors/FireStar.h"
#include "actors/Grenade.h"
#include "actors/Gun.h"
#include "support/CombatScene.h"

using Grevan::Player;

namespace {

// `me` with a loaded gun at x 100 and a target at x 700 on the floor, the wall (if any) between.
class CombatScenario : public CombatScene {
  protected:
    void setUpDuel(bool withWall) {
        loadLevel(withWall);
        target = addStandingPlayer(700, "raider");
        gun = arm<Grevan::Gun>(me, 60);
    }

    // One shot at the target's left edge on its row `row` (0 is the top): the first pixel of
    // the target that the line meets.
    void shootAtRow(int row) {
        int y = target->getY() + row;
        me->aim(target->getX(), y);
        ASSERT_TRUE(gun->fire(target->getX(), y));
    }

    Player* target = nullptr;
    Grevan::Gun* gun = nullptr;
};

TEST_F(CombatScenario, ABulletEndsAtTheTargetsFirstPixelOrAtTheWall) {
    for (bool wall : {false, true}) {
        setUpDuel(wall);
        shootAtRow(40);
        runFrames(8);
        std::vector<Grevan::FireStar*> stars = GrevanTest::objectsOf<Grevan::FireStar>(objects());
        ASSERT_EQ(stars.size(), 1u) << "wall " << wall;
        EXPECT_EQ(stars[0]->getX(), wall ? kWallLeft : 700) << "wall " << wall;
        if (!wall) {
            EXPECT_EQ(stars[0]->getY(), target->getY() + 40);
        }
        EXPECT_EQ(target->getHealth(), 100 - (wall ? 0 : 1)) << "row 40 of 48 does 1";
    }
}

TEST_F(CombatScenario, TheTargetIsHitOnlyWhenItStandsOnTheEndPointOnArrivalAndTheShooterNever) {
    setUpDuel(false);
    Player* stranger = addStandingPlayer(400, "raider");
    teleport(stranger, 400, 100);  // out of the line when the shot is fired
    int targetY = target->getY();
    shootAtRow(0);
    // The target steps back before the bullet arrives; the stranger steps into the end point.
    teleport(target, 900, targetY);
    teleport(stranger, 700, targetY);
    stranger->setVelocity(Vector());
    runFrames(1);
    EXPECT_EQ(stranger->getY(), targetY) << "still in place when the bullet arrives";
    runFrames(7);
    EXPECT_EQ(target->getHealth(), 100);
    EXPECT_EQ(stranger->getHealth(), 90);
    runFrames(7);
    ASSERT_TRUE(gun->fire(me->getX() + 2, me->getY() + 2));  // at my own picture
    runFrames(3);
    EXPECT_EQ(me->getHealth(), 100);
}

TEST_F(CombatScenario, ATopRowKillCreditsAKillAndAHeadShotAndATopRowWoundCreditsNothing) {
    setUpDuel(false);
    target->setHealth(15);
    const std::tuple<int, int, int> steps[] = {
        {0, 5, 0}, {0, 0, 1}, {10, 0, 1}};     // a corpse is not killed again
    for (auto [row, health, kills] : steps) {  // each kill here is a head shot
        runFrames(7);
        shootAtRow(row);
        runFrames(8);
        EXPECT_EQ(target->getHealth(), health);
        EXPECT_EQ(me->getKills(), kills);
        EXPECT_EQ(me->getHeadshots(), kills);
    }
    EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 1);
}

TEST_F(CombatScenario, AThrownGrenadeBouncesSoundsAtMostEveryFiveFramesAndExplodes) {
    Player* bystander = addStandingPlayer(200, "raider");
    arm<Grevan::Grenade>(me, 0);
    // Thrown at my feet: it leaves my hand, lands on the floor and bounces.
    me->fire(me->getCentralX(), me->getCentralY() + 100);
    game->getSoundSystem().removeSound("grenade_hitground");
    game->getSoundSystem().removeSound("grenade_explode");
    int bounces = 0;
    int lastBounce = -5;
    int explosions = 0;
    time_t start = time(nullptr);
    for (int frame = 0; explosions == 0 && time(nullptr) - start < 3; frame++) {
        std::string printed = GrevanTest::printedBy([&] { runFrames(1); });
        me->holdFire();
        if (printed.find("grenade_hitground") != std::string::npos) {
            EXPECT_GE(frame - lastBounce, 5) << "bounce sounds at frames " << lastBounce << " and " << frame;
            lastBounce = frame;
            bounces++;
        }
        explosions += printed.find("grenade_explode") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(GrevanTest::printedBy([&] { runFrames(10); }).find("grenade_explode"), std::string::npos);
    EXPECT_EQ(explosions, 1) << "the fuse burns within two seconds";
    EXPECT_GT(bounces, 0) << "the grenade lands on the floor";
    EXPECT_LT(bystander->getHealth(), 100) << "the blast reaches a player nearby";
    EXPECT_LT(me->getHealth(), 100) << "the thrower is not exempt";
}

}  // namespace

#include <gtest/gtest.h>

#include <ctime>

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
        gun = new Grevan::Gun(me);
        me->setWeapon(1, gun);
        me->setEquipment(1);
        gun->addBullets(90);
        runFrames(101);  // the first magazine is loaded
        ASSERT_EQ(gun->getBulletCurrent(), 30);
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

TEST_F(CombatScenario, TheTargetIsHitOnlyWhenItStandsOnTheEndPointOnArrival) {
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
}

TEST_F(CombatScenario, ATopRowKillCreditsAKillAndAHeadShotAndATopRowWoundCreditsNothing) {
    setUpDuel(false);
    target->setHealth(15);
    struct Step {
        int row, health, kills, headshots;
    } steps[] = {{0, 5, 0, 0}, {0, 0, 1, 1}, {10, 0, 1, 1}};  // a corpse is not killed again
    for (const Step& s : steps) {
        runFrames(7);
        shootAtRow(s.row);
        runFrames(8);
        EXPECT_EQ(target->getHealth(), s.health);
        EXPECT_EQ(me->getKills(), s.kills);
        EXPECT_EQ(me->getHeadshots(), s.headshots);
    }
    EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 1);
}

TEST_F(CombatScenario, AShotAtTheShootersOwnPictureNeverHitsHim) {
    setUpDuel(false);
    ASSERT_TRUE(gun->fire(me->getX() + 2, me->getY() + 2));
    runFrames(3);
    EXPECT_EQ(me->getHealth(), 100);
}

TEST_F(CombatScenario, AThrownGrenadeBouncesSoundsAtMostEveryFiveFramesAndExplodes) {
    Player* bystander = addStandingPlayer(200, "raider");
    Grevan::Grenade* grenades = new Grevan::Grenade(me);
    me->setWeapon(3, grenades);
    me->setEquipment(3);
    grenades->addBullets(1);
    runFrames(51);
    ASSERT_EQ(grenades->getBulletCurrent(), 1);
    // Thrown at my feet: it leaves my hand, lands on the floor and bounces.
    me->fire(me->getCentralX(), me->getCentralY() + 100);
    game->getSoundSystem().removeSound("grenade_hitground");
    game->getSoundSystem().removeSound("grenade_explode");
    std::vector<int> bounceFrames;
    int explosions = 0;
    time_t start = time(nullptr);
    for (int frame = 0; explosions == 0 && time(nullptr) - start < 3; frame++) {
        std::string printed = GrevanTest::printedBy([&] { runFrames(1); });
        me->holdFire();
        if (printed.find("grenade_hitground") != std::string::npos) {
            bounceFrames.push_back(frame);
        }
        explosions += printed.find("grenade_explode") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(GrevanTest::printedBy([&] { runFrames(10); }).find("grenade_explode"), std::string::npos);
    ASSERT_EQ(explosions, 1) << "the fuse burns within two seconds";
    ASSERT_FALSE(bounceFrames.empty()) << "the grenade lands on the floor";
    for (size_t i = 1; i < bounceFrames.size(); i++) {
        EXPECT_GE(bounceFrames[i] - bounceFrames[i - 1], 5);
    }
    EXPECT_LT(bystander->getHealth(), 100) << "the blast reaches a player nearby";
    EXPECT_LT(me->getHealth(), 100) << "the thrower is not exempt";
}

}  // namespace

#include <gtest/gtest.h>

#include <tuple>

#include "actors/Blood.h"
#include "actors/Explosion.h"
#include "actors/GrenadeThrown.h"
#include "actors/LaunchVelocity.h"
#include "support/CombatScene.h"

using Grevan::Explosion;
using Grevan::Player;

namespace {

using ProjectileTest = CombatScene;

TEST(LaunchVelocity, PointsAtTheTargetWithTheGivenSpeedAndAZeroLengthShotPointsLeft) {
    const std::tuple<int, int, int, int, float, Vector> cases[] = {
        {0, 0, 10, 0, 100.0f, {100, 0}},
        {5, 5, 5, 5, 100.0f, {-100, 0}},
        {0, 0, 0, 10, 100.0f, {0, 100}},
        {0, 10, 0, 0, 100.0f, {0, -100}},
        {0, 0, -30, 40, 100.0f, {-60, 80}},
        {0, 0, -30, -40, 100.0f, {-60, -80}},
        {10, 10, 13, 14, 8.0f, {4.8f, 6.4f}},
        {0, 0, 3, -4, 8.0f, {4.8f, -6.4f}}};  // from, to, speed, velocity
    for (auto [x, y, tx, ty, speed, velocity] : cases) {
        EXPECT_TRUE(GrevanTest::isNear(Grevan::launchVelocity(x, y, tx, ty, speed), velocity))
            << tx << ", " << ty;
    }
}

TEST_F(ProjectileTest, BloodFliesOnlyBackAlongTheImpulseOrDropsStraight) {
    for (Vector impulse : {Vector(1.0f, 0.0f), Vector(-0.6f, 0.8f)}) {
        for (unsigned seed = 1; seed <= 50; seed++) {
            std::vector<int> draws = GrevanTest::upcomingRandoms(seed, 5);
            Grevan::Blood drop(10, 20, impulse);
            EXPECT_EQ(drop.getRadius(), draws[0] % 5 + 1);
            float backX = -(draws[1] % 5) * (draws[2] % 2);  // 0 to -4 along the impulse, or 0
            float backY = -(draws[3] % 5) * (draws[4] % 2);
            EXPECT_TRUE(GrevanTest::isNear(drop.getVelocity(), {backX * impulse.x, backY * impulse.y}));
        }
    }
}

TEST_F(ProjectileTest, AnExplosionHitsEveryoneInReachOnEachOfItsTenFrames) {
    Player* atCentre = addStandingPlayer(300);
    Player* farther = addStandingPlayer(400);
    Player* atTheEdge = addStandingPlayer(481);  // 181 pixels off: the last ring's radius
    Player* outOfReach = addStandingPlayer(700);
    ASSERT_EQ(farther->getCentralX() - atCentre->getCentralX(), 100);
    objects().addObject(new Explosion(me, atCentre->getCentralX(), atCentre->getCentralY()));
    runFrames(12);
    EXPECT_EQ(atCentre->getHealth(), 50);
    EXPECT_EQ(farther->getHealth(), 75);
    EXPECT_EQ(atTheEdge->getHealth(), 95);
    EXPECT_EQ(outOfReach->getHealth(), 100);
    EXPECT_EQ(me->getKills(), 0);
}

TEST_F(ProjectileTest, AnExplosionKillRaisesOnKillOnThatFrameAndCreditsTheThrowerEvenForHimself) {
    Player* victim = addStandingPlayer(200);
    victim->setHealth(20);
    me->setHealth(15);
    objects().addObject(new Explosion(me, victim->getCentralX(), victim->getCentralY()));
    int deathFrame = -1;
    for (int frame = 0; frame < 12; frame++) {
        runFrames(1);
        if (deathFrame < 0 && !victim->isAlive()) {
            deathFrame = frame;
            EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 1);
        }
    }
    EXPECT_EQ(deathFrame, 3) << "the fourth hit of 5 takes the last of 20";
    EXPECT_FALSE(me->isAlive()) << "100 pixels off: three hits of 5 take 15";
    EXPECT_EQ(me->getKills(), 2);
    EXPECT_EQ(me->getHeadshots(), 0);
    EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 2);
}

TEST_F(ProjectileTest, AGrenadeRattlingOnTheGroundSoundsAtMostOnceEveryFiveFrames) {
    Player* other = addStandingPlayer(300, "raider");
    Grevan::Object ground;
    struct Case {
        Grevan::Object* landedOn;  // each frame
        int frames, plays;
    } cases[] = {{&ground, 20, 4}, {&ground, 5, 1}, {&ground, 6, 2}, {other, 20, 0}};
    for (const Case& c : cases) {
        Grevan::GrenadeThrown grenade(me, 500, 300, 600, 300, 0);
        int plays = playsOf("grenade_hitground", [&] {
            for (int frame = 0; frame < c.frames; frame++) {
                grenade.handleCollision(Grevan::SIDE_BOTTOM, c.landedOn);
                grenade.move();
            }
        });
        EXPECT_EQ(plays, c.plays) << c.frames << " frames";
    }
}

TEST_F(ProjectileTest, AGrenadePassesPlayersOfItsThrowersColourOnly) {
    Player* twin = addStandingPlayer(300);
    Player* other = addStandingPlayer(500, "raider");
    twin->setColor(me->getColor());
    for (Player* p : {me, twin, other}) {
        Grevan::GrenadeThrown grenade(me, p->getCentralX(), p->getCentralY(), 0, 0, 0);
        EXPECT_EQ(grenade.collide(p), p == other);
    }
}

}  // namespace

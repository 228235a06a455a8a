#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <set>
#include <tuple>

#include "actors/Blood.h"
#include "actors/Explosion.h"
#include "actors/FireStar.h"
#include "actors/Grenade.h"
#include "actors/GrenadeThrown.h"
#include "actors/Gun.h"
#include "actors/LaunchVelocity.h"
#include "support/CombatScene.h"

using Grevan::Explosion;
using Grevan::Player;

namespace {

// Bullets, grenades, blasts and blood on the combat level.
class ProjectileTest : public CombatScene {
  protected:
    // Arms `me` with a gun and shoots once at the target's top left pixel: the first pixel of the
    // target that the line meets.
    void shootAtTopLeftOf(Player* target) {
        gun = arm<Grevan::Gun>(me, 0);
        me->aim(target->getX(), target->getY());
        ASSERT_TRUE(gun->fire(target->getX(), target->getY()));
    }

    Grevan::Gun* gun = nullptr;
};

TEST(LaunchVelocity, PointsAtTheTargetWithTheGivenSpeedAndAZeroLengthShotPointsLeft) {
    // from, to, speed, velocity
    const std::tuple<int, int, int, int, float, Vector> cases[] = {
        {0, 0, 10, 0, 100.0f, {100, 0}},      {5, 5, 5, 5, 100.0f, {-100, 0}},
        {0, 10, 0, 0, 100.0f, {0, -100}},     {0, 0, -30, 40, 100.0f, {-60, 80}},
        {10, 10, 13, 14, 8.0f, {4.8f, 6.4f}}, {0, 0, 3, -4, 8.0f, {4.8f, -6.4f}}};
    for (auto [x, y, tx, ty, speed, velocity] : cases) {
        EXPECT_TRUE(GrevanTest::isNear(Grevan::launchVelocity(x, y, tx, ty, speed), velocity))
            << tx << ", " << ty;
    }
}

TEST_F(ProjectileTest, ABulletEndsAtTheTargetsFirstPixelOrAtTheWallAndATopRowKillIsAHeadShot) {
    for (bool wall : {false, true}) {
        loadLevel(wall);
        Player* target = addStandingPlayer(700, "raider");
        target->setHealth(10);
        shootAtTopLeftOf(target);
        runFrames(8);
        std::vector<Grevan::FireStar*> stars = GrevanTest::objectsOf<Grevan::FireStar>(objects());
        ASSERT_EQ(stars.size(), 1u) << "wall " << wall;
        // Where the bullet ended, whether the target lives, my kills and head shots.
        EXPECT_EQ(std::make_tuple(stars[0]->getX(), wall || stars[0]->getY() == target->getY(),
                                  target->isAlive(), me->getKills(), me->getHeadshots()),
                  std::make_tuple(wall ? kWallLeft : 700, true, wall, wall ? 0 : 1, wall ? 0 : 1));
    }
}

TEST_F(ProjectileTest, ABulletHitsWhoeverStandsOnTheEndPointOnArrivalButNeverTheShooter) {
    Player* target = addStandingPlayer(700, "raider");
    Player* stranger = addStandingPlayer(400, "raider");
    teleport(stranger, 400, 100);  // out of the line when the shot is fired
    int targetY = target->getY();
    shootAtTopLeftOf(target);
    // The target steps back before the bullet arrives; the stranger steps into the end point.
    teleport(target, 900, targetY);
    teleport(stranger, 700, targetY);
    stranger->setVelocity(Vector());
    runFrames(1);
    EXPECT_EQ(stranger->getY(), targetY) << "still in place when the bullet arrives";
    runFrames(7);
    EXPECT_EQ(std::make_pair(target->getHealth(), stranger->getHealth()), std::make_pair(100, 90));
    runFrames(7);
    ASSERT_TRUE(gun->fire(me->getX() + 2, me->getY() + 2));  // at my own picture
    runFrames(3);
    EXPECT_EQ(me->getHealth(), 100);
}

// On each axis a drop flies back against the hit at up to four times the impulse, or drops
// straight; drops come in five sizes.
TEST_F(ProjectileTest, BloodFliesOnlyBackAlongTheImpulseOrDropsStraight) {
    const std::set<int> anyBack = {-4, -3, -2, -1, 0};
    for (Vector impulse : {Vector(1.0f, 0.0f), Vector(-0.6f, 0.8f)}) {
        std::set<int> radii, backX, backY;  // the speeds in impulses
        for (int i = 0; i < 200; i++) {
            Grevan::Blood drop(10, 20, impulse);
            const Vector v = drop.getVelocity();
            const int x = std::lround(v.x / impulse.x);
            const int y = impulse.y == 0.0f ? 0 : std::lround(v.y / impulse.y);
            EXPECT_TRUE(GrevanTest::isNear(v, {x * impulse.x, y * impulse.y}));
            radii.insert(drop.getRadius());
            backX.insert(x);
            backY.insert(y);
        }
        EXPECT_EQ(
            std::make_tuple(radii, backX, backY),
            std::make_tuple(std::set<int>{1, 2, 3, 4, 5}, anyBack, impulse.y ? anyBack : std::set<int>{0}));
    }
}

TEST_F(ProjectileTest, AnExplosionHitsEveryoneInReachOnEachOfItsTenFramesAndCreditsTheThrowerEvenForHimself) {
    Player* victim = addStandingPlayer(200);
    Player* farther = addStandingPlayer(300);    // 100 pixels off, as I am
    Player* atTheEdge = addStandingPlayer(381);  // 181 pixels off: the last ring's radius
    Player* outOfReach = addStandingPlayer(600);
    ASSERT_EQ(farther->getCentralX() - victim->getCentralX(), 100);
    victim->setHealth(20);
    me->setHealth(15);
    objects().addObject(std::make_unique<Explosion>(me, victim->getCentralX(), victim->getCentralY()));
    int deathFrame = -1;
    for (int frame = 0; frame < 12; frame++) {
        runFrames(1);
        if (deathFrame < 0 && !victim->isAlive()) {
            deathFrame = frame;
            EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 1) << "OnKill on the killing frame";
        }
    }
    EXPECT_EQ(deathFrame, 3) << "the fourth hit of 5 takes the last of 20";
    // Three of the same hits take my 15; wounds and corpses credit nothing.
    EXPECT_EQ(
        std::make_tuple(me->isAlive(), farther->getHealth(), atTheEdge->getHealth(), outOfReach->getHealth(),
                        me->getKills(), me->getHeadshots(), game->getScriptSystem().getPendingEventCount()),
        std::make_tuple(false, 75, 95, 100, 2, 0, 2));
}

TEST_F(ProjectileTest, AGrenadePassesPlayersOfItsThrowersColourAndRattlesAtMostOnceEveryFiveFrames) {
    Player* twin = addStandingPlayer(300);
    Player* other = addStandingPlayer(500, "raider");
    twin->setColor(me->getColor());
    for (Player* p : {me, twin, other}) {
        Grevan::GrenadeThrown grenade(me, p->getCentralX(), p->getCentralY(), 0, 0, 0);
        EXPECT_EQ(grenade.collide(p), p == other);
    }
    Grevan::Object ground;
    // What it lands on each frame, for how many frames, how often it sounds.
    const std::tuple<Grevan::Object*, int, int> cases[] = {
        {&ground, 20, 4}, {&ground, 5, 1}, {&ground, 6, 2}, {other, 20, 0}};
    for (auto [landedOn, frames, expectedPlays] : cases) {
        Grevan::GrenadeThrown grenade(me, 500, 300, 600, 300, 0);
        int plays = playsOf("grenade_hitground", [&] {
            for (int frame = 0; frame < frames; frame++) {
                grenade.handleCollision(Grevan::SIDE_BOTTOM, landedOn);
                grenade.move();
            }
        });
        EXPECT_EQ(plays, expectedPlays) << frames << " frames";
    }
}

TEST_F(ProjectileTest, AThrownGrenadeLandsAndExplodesOnceWithinItsFuseHurtingTheThrowerToo) {
    arm<Grevan::Grenade>(me, 0);
    me->fire(me->getCentralX(), me->getCentralY() + 100);  // at my feet
    game->getSoundSystem().removeSound("grenade_hitground");
    game->getSoundSystem().removeSound("grenade_explode");
    std::string printed;
    const time_t start = time(nullptr);
    while (printed.find("grenade_explode") == std::string::npos && time(nullptr) - start < 3) {
        printed += GrevanTest::printedBy([&] { runFrames(1); });
        me->holdFire();
    }
    printed += GrevanTest::printedBy([&] { runFrames(10); });
    // It lands on the floor, and the fuse burns once within two seconds.
    EXPECT_NE(printed.find("grenade_hitground"), std::string::npos);
    EXPECT_TRUE(printed.find("grenade_explode") != std::string::npos &&
                printed.find("grenade_explode") == printed.rfind("grenade_explode"));
    EXPECT_LT(me->getHealth(), 100) << "the blast reaches the thrower at its feet";
}

}  // namespace

#include <gtest/gtest.h>

#include <cstdlib>

#include "actors/Blood.h"
#include "actors/Explosion.h"
#include "actors/FireStar.h"
#include "actors/GrenadeThrown.h"
#include "actors/LaunchVelocity.h"
#include "support/CombatScene.h"

using Grevan::Blood;
using Grevan::Explosion;
using Grevan::FireStar;
using Grevan::Player;

namespace {

using ProjectileTest = CombatScene;

TEST(LaunchVelocity, PointsAtTheTargetWithTheGivenSpeed) {
    struct Case {
        int x, y, tx, ty;
        float speed, vx, vy;
    } cases[] = {
        {0, 0, 10, 0, 100.0f, 100.0f, 0.0f},    {10, 0, 0, 0, 100.0f, -100.0f, 0.0f},
        {5, 5, 5, 5, 100.0f, -100.0f, 0.0f},    {0, 0, 0, 10, 100.0f, 0.0f, 100.0f},
        {0, 10, 0, 0, 100.0f, 0.0f, -100.0f},   {0, 0, 30, 40, 100.0f, 60.0f, 80.0f},
        {0, 0, -30, 40, 100.0f, -60.0f, 80.0f}, {0, 0, -30, -40, 100.0f, -60.0f, -80.0f},
        {10, 10, 13, 14, 8.0f, 4.8f, 6.4f},     {0, 0, 3, -4, 8.0f, 4.8f, -6.4f},
    };
    for (const Case& c : cases) {
        Vector v = Grevan::launchVelocity(c.x, c.y, c.tx, c.ty, c.speed);
        EXPECT_NEAR(v.x, c.vx, 1e-4) << c.tx << ", " << c.ty;
        EXPECT_NEAR(v.y, c.vy, 1e-4) << c.tx << ", " << c.ty;
    }
}

TEST_F(ProjectileTest, BloodFliesOnlyBackAlongTheImpulseOrDropsStraight) {
    struct Case {
        Vector impulse;
    } cases[] = {{Vector(1.0f, 0.0f)}, {Vector(-0.6f, 0.8f)}, {Vector(0.0f, -1.0f)}};
    for (const Case& c : cases) {
        for (unsigned seed = 1; seed <= 50; seed++) {
            srand(seed);
            int radius = rand() % 5 + 1;
            int backX = -(rand() % 5);
            int keepX = rand() % 2;
            int backY = -(rand() % 5);
            int keepY = rand() % 2;
            srand(seed);
            Blood drop(10, 20, c.impulse);
            EXPECT_EQ(drop.getRadius(), radius);
            EXPECT_FLOAT_EQ(drop.getVelocity().x, static_cast<float>(keepX * backX) * c.impulse.x);
            EXPECT_FLOAT_EQ(drop.getVelocity().y, static_cast<float>(keepY * backY) * c.impulse.y);
            EXPECT_LE(drop.getVelocity().x * c.impulse.x, 0.0f) << "never along the hit";
            EXPECT_LE(drop.getVelocity().y * c.impulse.y, 0.0f) << "never along the hit";
        }
    }
}

TEST_F(ProjectileTest, AFireStarGrowsForTenFramesAndDies) {
    FireStar star(40, 50);
    for (int frame = 1; frame <= 10; frame++) {
        EXPECT_FALSE(star.isDead());
        star.move();
        EXPECT_EQ(star.getRadius(), frame + 1);
    }
    EXPECT_TRUE(star.isDead());
}

TEST_F(ProjectileTest, AnExplosionHitsEveryoneInReachOnEachOfItsTenFrames) {
    loadLevel(false);
    Player* thrower = addStandingPlayer(100);
    Player* atCentre = addStandingPlayer(300);
    Player* farther = addStandingPlayer(400);
    Player* outOfReach = addStandingPlayer(700);
    int x = atCentre->getCentralX();
    int y = atCentre->getCentralY();
    ASSERT_EQ(farther->getCentralX() - x, 100);
    game->getObjectSystem().addObject(new Explosion(thrower, x, y));
    for (int frame = 0; frame < 12; frame++) {
        runFrames(1);
    }
    struct Case {
        Player* p;
        int health;
    } cases[] = {{atCentre, 50}, {farther, 75}, {outOfReach, 100}, {thrower, 100}};
    for (const Case& c : cases) {
        EXPECT_EQ(c.p->getHealth(), c.health) << c.p->getX();
    }
    EXPECT_EQ(thrower->getKills(), 0);
}

TEST_F(ProjectileTest, AnExplosionKillRaisesOnKillOnThatFrameAndCreditsTheThrowerEvenForHimself) {
    loadLevel(false);
    Player* thrower = addStandingPlayer(200);
    Player* victim = addStandingPlayer(300);
    victim->setHealth(20);
    thrower->setHealth(15);
    game->getObjectSystem().addObject(new Explosion(thrower, victim->getCentralX(), victim->getCentralY()));
    std::vector<int> deathFrames;
    bool victimDead = false;
    for (int frame = 0; frame < 12; frame++) {
        runFrames(1);
        if (!victimDead && !victim->isAlive()) {
            victimDead = true;
            deathFrames.push_back(frame);
            EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 1);
        }
    }
    ASSERT_EQ(deathFrames.size(), 1u);
    EXPECT_EQ(deathFrames[0], 3) << "the fourth hit of 5 takes the last of 20";
    EXPECT_FALSE(thrower->isAlive()) << "100 pixels off: three hits of 5 take 15";
    EXPECT_EQ(thrower->getKills(), 2);
    EXPECT_EQ(thrower->getHeadshots(), 0);
    EXPECT_EQ(game->getScriptSystem().getPendingEventCount(), 2);
}

TEST_F(ProjectileTest, AGrenadeRattlingOnTheGroundSoundsAtMostOnceEveryFiveFrames) {
    loadLevel(false);
    Player* thrower = addStandingPlayer(100);
    Player* other = addStandingPlayer(300, "raider");
    Grevan::Object ground;
    struct Case {
        Grevan::Object* landedOn;
        int frames;
        int plays;
    } cases[] = {{&ground, 20, 4}, {&ground, 1, 1}, {&ground, 5, 1}, {&ground, 6, 2}, {other, 20, 0}};
    for (const Case& c : cases) {
        Grevan::GrenadeThrown grenade(thrower, 500, 300, 600, 300, 0);
        int plays = playsOf("grenade_hitground", [&] {
            for (int frame = 0; frame < c.frames; frame++) {
                grenade.handleCollision(Grevan::SIDE_BOTTOM, c.landedOn);
                grenade.move();
            }
        });
        EXPECT_EQ(plays, c.plays) << c.frames << " frames";
        game->getSoundSystem().addSound("grenade_hitground", "sound/weapons/he_bounce-1.wav");
    }
}

TEST_F(ProjectileTest, AGrenadePassesPlayersOfItsThrowersColourOnly) {
    loadLevel(false);
    Player* thrower = addStandingPlayer(100);
    Player* twin = addStandingPlayer(300);
    Player* other = addStandingPlayer(500, "raider");
    twin->setColor(thrower->getColor());
    struct Case {
        Player* p;
        bool collides;
    } cases[] = {{thrower, false}, {twin, false}, {other, true}};
    for (const Case& c : cases) {
        Grevan::GrenadeThrown grenade(thrower, c.p->getCentralX(), c.p->getCentralY(), 0, 0, 0);
        EXPECT_EQ(grenade.collide(c.p), c.collides);
    }
}

}  // namespace

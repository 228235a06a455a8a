#include "actors/Weapon.h"

#include <gtest/gtest.h>

#include "actors/Bullet.h"
#include "actors/Grenade.h"
#include "actors/GrenadeThrown.h"
#include "actors/Gun.h"
#include "actors/Pistol.h"
#include "support/CombatScene.h"

using Grevan::Grenade;
using Grevan::Gun;
using Grevan::Pistol;
using Grevan::Player;
using Grevan::Weapon;

namespace {

class WeaponTest : public CombatScene {
  protected:
    void SetUp() override {
        loadLevel(false);
        shooter = addStandingPlayer(100);
    }

    // A weapon of the shooter's in slot 1, in hand, with a full magazine and `spare` rounds.
    template <typename Kind>
    Kind* arm(int spare) {
        Kind* w = new Kind(shooter);
        shooter->setWeapon(1, w);
        shooter->setEquipment(1);
        w->addBullets(w->getMagazineSize());
        runUntilReady(w);
        w->addBullets(spare);
        return w;
    }

    void runUntilReady(Weapon* w) {
        for (int i = 0; i < 200 && (w->getTimer() > 0 || w->getBulletCurrent() == 0); i++) {
            w->move();
        }
    }

    static bool isBullet(Grevan::Object* o) { return dynamic_cast<Grevan::Bullet*>(o) != nullptr; }

    Player* shooter = nullptr;
};

TEST_F(WeaponTest, HeldFireShootsOnceEveryFireDelayFrames) {
    struct Kind {
        const char* name;
        int fireDelay;
        int magazine;
    } kinds[] = {{"gun", 7, 30}, {"pistol", 15, 20}};
    for (const Kind& k : kinds) {
        Weapon* w = std::string(k.name) == "gun" ? static_cast<Weapon*>(arm<Gun>(0)) : arm<Pistol>(0);
        EXPECT_EQ(w->getFireDelay(), k.fireDelay);
        EXPECT_EQ(w->getBulletCurrent(), k.magazine);
        shooter->fire(900, shooter->getY() + 10);
        std::vector<int> shotFrames;
        for (int frame = 0; frame < 3 * k.fireDelay + 1; frame++) {
            int before = w->getBulletCurrent();
            shooter->move();
            if (w->getBulletCurrent() < before) {
                shotFrames.push_back(frame);
            }
        }
        EXPECT_EQ(shotFrames, (std::vector<int>{0, k.fireDelay, 2 * k.fireDelay, 3 * k.fireDelay})) << k.name;
        shooter->holdFire();
    }
}

TEST_F(WeaponTest, FortyFiveRoundsIntoAnEmptyGunReloadOnceIntoThirtyAndFifteen) {
    Gun* gun = new Gun(shooter);
    shooter->setWeapon(1, gun);
    shooter->setEquipment(1);
    gun->addBullets(45);
    EXPECT_EQ(gun->getBulletTotal(), 45);
    int plays = playsOf("gun_reload", [&] {
        for (int frame = 0; frame < 100; frame++) {
            gun->move();
            EXPECT_EQ(gun->getBulletCurrent(), 0) << "frame " << frame;
            gun->reload();  // a reload under way is neither restarted nor heard again
        }
        gun->move();
    });
    EXPECT_EQ(plays, 1);
    EXPECT_EQ(gun->getBulletCurrent(), 30);
    EXPECT_EQ(gun->getBulletTotal(), 45);
    EXPECT_FALSE(gun->isReloading());
}

TEST_F(WeaponTest, TheLastRoundStartsAReloadOnlyWhenThereIsAReserve) {
    struct Case {
        int spare;
        bool reloads;
    } cases[] = {{0, false}, {1, true}, {50, true}};
    for (const Case& c : cases) {
        Pistol* pistol = arm<Pistol>(c.spare);
        while (pistol->getBulletCurrent() > 1) {
            pistol->reduceBullet();
        }
        EXPECT_TRUE(pistol->fire(900, 100));
        EXPECT_EQ(pistol->isReloading(), c.reloads) << c.spare;
        EXPECT_EQ(pistol->getTimer(), c.reloads ? 60 : 15) << c.spare;
        runUntilReady(pistol);
        EXPECT_EQ(pistol->getBulletCurrent(), std::min(c.spare, 20)) << c.spare;
        EXPECT_FALSE(pistol->fire(900, 100) && c.spare == 0) << "an empty weapon cannot fire";
    }
}

TEST_F(WeaponTest, AGrenadeReloadRestartsWhileTheButtonIsHeld) {
    Grenade* grenade = arm<Grenade>(3);
    shooter->fire(300, 200);
    shooter->move();
    EXPECT_EQ(grenade->getBulletCurrent(), 0) << "thrown";
    for (int frame = 0; frame < 120; frame++) {
        shooter->move();
        EXPECT_EQ(grenade->getBulletCurrent(), 0) << "held at frame " << frame;
    }
    shooter->holdFire();
    int frames = 0;
    while (grenade->getBulletCurrent() == 0 && frames < 100) {
        shooter->move();
        frames++;
    }
    // Counted from the last held frame, whose own move started the 50-frame reload.
    EXPECT_EQ(frames, 49) << "ready on the 50th frame";
}

TEST_F(WeaponTest, AimAnglesByQuadrant) {
    Gun gun(shooter);
    struct Case {
        int dx, dy, angle;
    } cases[] = {{10, 10, 224}, {10, -10, 32}, {-10, 10, 160}, {-10, -10, 96}, {0, 10, 64},
                 {0, -10, 64},  {10, 0, 0},    {-10, 0, 128},  {0, 0, 64},     {100, -1, 0}};
    for (const Case& c : cases) {
        gun.setTarget(c.dx, c.dy);
        EXPECT_EQ(gun.getAngle(), c.angle) << c.dx << ", " << c.dy;
    }
}

TEST_F(WeaponTest, PointingIntoTheLeftHalfDrawsMirrored) {
    Gun gun(shooter);
    ASSERT_NE(gun.getImage(), nullptr);
    BITMAP* expected = create_bitmap(100, 100);
    struct Case {
        int dx, dy;
        int angle;
        bool mirrored;
    } cases[] = {{0, 10, 64, false},  {-1, -41, 65, true}, {-10, 0, 128, true},
                 {-1, 41, 191, true}, {0, 0, 64, false},   {10, 10, 224, false}};
    for (const Case& c : cases) {
        gun.setTarget(c.dx, c.dy);
        ASSERT_EQ(gun.getAngle(), c.angle);
        clear_to_color(buffer, 0);
        gun.draw(buffer, 50, 50);
        clear_to_color(expected, 0);
        BITMAP* picture = gun.getImage();
        int left = 50 - picture->w / 2;
        int top = 50 - picture->h / 2;
        if (c.mirrored) {
            rotate_sprite_v_flip(expected, picture, left, top, itofix(c.angle));
        } else {
            rotate_sprite(expected, picture, left, top, itofix(c.angle));
        }
        int differences = 0;
        for (int y = 0; y < 100; y++) {
            for (int x = 0; x < 100; x++) {
                differences += getpixel(buffer, x, y) != getpixel(expected, x, y) ? 1 : 0;
            }
        }
        EXPECT_EQ(differences, 0) << "angle " << c.angle;
    }
    destroy_bitmap(expected);
}

TEST_F(WeaponTest, OnlyTheMainPlayersWeaponInHandKicksTheSight) {
    Player* opponent = addStandingPlayer(300, "raider");
    game->setMainPlayer(shooter);
    Gun* mine = arm<Gun>(0);
    Gun* theirs = new Gun(opponent);
    opponent->setWeapon(1, theirs);
    opponent->setEquipment(1);
    theirs->addBullets(30);
    runUntilReady(theirs);
    Grevan::FrontSight& sight = game->getAimSystem().getSight();
    struct Case {
        Gun* gun;
        int divergence;
    } cases[] = {{theirs, 5}, {mine, 35}};
    for (const Case& c : cases) {
        sight.setDivergence(5);
        EXPECT_TRUE(c.gun->fire(900, 300));
        EXPECT_EQ(sight.getDivergence(), c.divergence);
    }
    Pistol* pistol = new Pistol(shooter);
    shooter->setWeapon(2, pistol);
    pistol->addBullets(20);
    runUntilReady(pistol);
    sight.setDivergence(5);
    EXPECT_TRUE(pistol->fire(900, 300));
    EXPECT_EQ(sight.getDivergence(), 5) << "not the weapon in hand";
    shooter->setEquipment(2);
    runUntilReady(pistol);
    EXPECT_TRUE(pistol->fire(900, 300));
    EXPECT_EQ(sight.getDivergence(), 25);
}

Grevan::Bullet* newestBullet(Grevan::ObjectSystem& objects) {
    Grevan::Bullet* newest = nullptr;
    for (Grevan::Object* o : objects.getObjects()) {
        if (auto* bullet = dynamic_cast<Grevan::Bullet*>(o)) {
            newest = bullet;
        }
    }
    return newest;
}

TEST_F(WeaponTest, ShotsLeaveHalfThePictureWidthFromTheCentreOrTheCentreWithoutAPicture) {
    std::string walk = folder.writeStrip("bare/walk.bmp", 20, 40, 1);
    folder.writeFile("bare/config.dat", "1\n0 0 1 " + walk + " 1\n0 0 20 40\n");
    Player* bare = new Player("bare", folder.reachFrom("image/role", "bare"));
    bare->setX(300);
    bare->setY(200);
    game->getObjectSystem().addObject(bare);
    Gun* pictureless = nullptr;
    std::string printed = printedBy([&] { pictureless = new Gun(bare); });
    EXPECT_NE(printed.find("Failed to load bitmap image/role/"), std::string::npos) << printed;
    bare->setWeapon(1, pictureless);
    bare->setEquipment(1);
    pictureless->addBullets(30);
    runUntilReady(pictureless);

    Gun* gun = arm<Gun>(0);
    ASSERT_EQ(gun->getWidth(), 32);
    struct Case {
        Player* holder;
        Gun* weapon;
        int offset;  // pixels from the centre, towards the target
    } cases[] = {{shooter, gun, 16}, {bare, pictureless, 0}};
    for (const Case& c : cases) {
        int cx = c.holder->getCentralX();
        int cy = c.holder->getCentralY();
        EXPECT_EQ(playsOf("gun", [&] { EXPECT_TRUE(c.weapon->fire(cx + 500, cy)); }), 1);
        Grevan::Bullet* bullet = newestBullet(game->getObjectSystem());
        ASSERT_NE(bullet, nullptr);
        EXPECT_EQ(bullet->getX(), cx + c.offset);
        EXPECT_EQ(bullet->getY(), cy);
    }
    clear_to_color(buffer, 0);
    pictureless->draw(buffer, 50, 50);
    int drawn = 0;
    for (int y = 0; y < 100; y++) {
        for (int x = 0; x < 100; x++) {
            drawn += getpixel(buffer, x, y) != 0 ? 1 : 0;
        }
    }
    EXPECT_EQ(drawn, 0);
}

}  // namespace

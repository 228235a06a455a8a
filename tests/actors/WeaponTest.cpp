#include "actors/Weapon.h"

#include <gtest/gtest.h>

#include <tuple>

#include "actors/Bullet.h"
#include "actors/Grenade.h"
#include "actors/Gun.h"
#include "actors/Pistol.h"
#include "support/CombatScene.h"

using Grevan::Gun;
using Grevan::Pistol;
using Grevan::Player;
using Grevan::Weapon;

namespace {

using WeaponTest = CombatScene;

TEST_F(WeaponTest, HeldFireShootsOnceEveryFireDelayFrames) {
    Gun* gun = arm<Gun>(me, 0);
    me->fire(900, me->getY() + 10);
    std::vector<int> shotFrames;
    for (int frame = 0; frame < 22; frame++) {
        int before = gun->getBulletCurrent();
        me->move();
        if (gun->getBulletCurrent() < before) {
            shotFrames.push_back(frame);
        }
    }
    EXPECT_EQ(shotFrames, (std::vector<int>{0, 7, 14, 21}));
}

TEST_F(WeaponTest, FortyFiveRoundsIntoAnEmptyGunReloadOnceIntoThirtyAndFifteen) {
    Gun gun(me);
    gun.addBullets(45);
    int plays = playsOf("gun_reload", [&] {
        for (int frame = 0; frame < 100; frame++) {
            gun.move();
            EXPECT_EQ(gun.getBulletCurrent(), 0) << "frame " << frame;
            gun.reload();  // a reload under way is neither restarted nor heard again
        }
        gun.move();
    });
    EXPECT_EQ(plays, 1);
    EXPECT_EQ(std::make_pair(gun.getBulletCurrent(), gun.getBulletTotal()), std::make_pair(30, 45));
}

TEST_F(WeaponTest, AbsurdRoundCountsStopAtTheReserveLimitEitherWay) {
    const int limit = Weapon::kReserveLimit;
    // Two hand-outs to an empty gun, the total afterwards; the limit less 2^31 lies below -limit.
    const std::tuple<int, int, int> cases[] = {{10, 5, 15},
                                               {2147483647, 2147483647, limit},
                                               {limit, 1, limit},
                                               {-2147483647 - 1, -5, -limit},
                                               {2147483647, -2147483647 - 1, -limit}};
    for (auto [first, second, total] : cases) {
        Gun gun(me);
        gun.addBullets(first);
        gun.addBullets(second);
        EXPECT_EQ(gun.getBulletTotal(), total) << first << ", " << second;
    }
}

TEST_F(WeaponTest, TheLastRoundStartsAReloadOnlyWhenThereIsAReserve) {
    for (int spare : {0, 1, 50}) {
        Pistol* pistol = arm<Pistol>(me, spare);
        while (pistol->getBulletCurrent() > 1) {
            pistol->reduceBullet();
        }
        EXPECT_TRUE(pistol->fire(900, 100));
        EXPECT_EQ(pistol->isReloading(), spare > 0) << spare;
        EXPECT_EQ(pistol->getTimer(), spare > 0 ? 60 : 15) << spare;
        runUntilReady(pistol);
        EXPECT_EQ(pistol->getBulletCurrent(), std::min(spare, 20)) << spare;
        EXPECT_EQ(pistol->fire(900, 100), spare > 0) << "an empty weapon cannot fire";
    }
}

TEST_F(WeaponTest, AGrenadeReloadRestartsWhileTheButtonIsHeld) {
    Grevan::Grenade* grenade = arm<Grevan::Grenade>(me, 3);
    me->fire(300, 200);
    for (int frame = 0; frame < 120; frame++) {
        me->move();
        EXPECT_EQ(grenade->getBulletCurrent(), 0) << "thrown, and held at frame " << frame;
    }
    me->holdFire();
    int frames = 0;
    while (grenade->getBulletCurrent() == 0 && frames < 100) {
        me->move();
        frames++;
    }
    // Counted from the last held frame, whose own move started the 50-frame reload.
    EXPECT_EQ(frames, 49) << "ready on the 50th frame";
}

TEST_F(WeaponTest, AimAnglesByQuadrantAndOnlyTheLeftHalfIsDrawnMirrored) {
    Gun gun(me);
    BITMAP* picture = gun.getImage();
    ASSERT_NE(picture, nullptr);
    BITMAP* expected = create_bitmap(buffer->w, buffer->h);
    const std::tuple<int, int, int> cases[] = {{10, 10, 224}, {10, -10, 32}, {-10, 10, 160}, {-10, -10, 96},
                                               {0, 10, 64},   {0, -10, 64},  {-10, 0, 128},  {0, 0, 64},
                                               {100, -1, 0},  {-1, -41, 65}, {-1, 41, 191}};  // dx, dy, angle
    for (auto [dx, dy, angle] : cases) {
        gun.setTarget(dx, dy);
        EXPECT_EQ(gun.getAngle(), angle) << dx << ", " << dy;
        clear_to_color(buffer, 0);
        gun.draw(buffer, 50, 50);
        clear_to_color(expected, 0);
        auto draw = angle < 65 || angle > 191 ? rotate_sprite : rotate_sprite_v_flip;
        draw(expected, picture, 50 - picture->w / 2, 50 - picture->h / 2, itofix(angle));
        EXPECT_EQ(GrevanTest::differingPixels(buffer, expected), 0) << "angle " << angle;
    }
    destroy_bitmap(expected);
    // Partly beyond the top left corner only a part shows; far beyond it nothing does.
    const int wholePicture = buffer->w * buffer->h - GrevanTest::pixelsOf(buffer, 0);
    for (int centre : {2, -100000}) {
        clear_to_color(buffer, 0);
        gun.draw(buffer, centre, centre);
        const int shown = buffer->w * buffer->h - GrevanTest::pixelsOf(buffer, 0);
        EXPECT_EQ(shown > 0 && shown < wholePicture, centre == 2) << centre;
    }
}

TEST_F(WeaponTest, OnlyTheMainPlayersWeaponInHandKicksTheSight) {
    game->setMainPlayer(me);
    Gun* theirs = arm<Gun>(addStandingPlayer(300, "raider"), 0);
    Gun* mine = arm<Gun>(me, 0);
    Pistol* pistol = arm<Pistol>(me, 0, 2);
    const std::tuple<Weapon*, int, int> cases[] = {
        {theirs, 1, 5}, {pistol, 1, 5}, {mine, 1, 35}, {pistol, 2, 25}};  // fired, slot in hand, arms after
    for (auto [weapon, inHand, divergence] : cases) {
        me->setEquipment(inHand);
        runUntilReady(weapon);
        game->getAimSystem().getSight().setDivergence(5);
        EXPECT_TRUE(weapon->fire(900, 300));
        EXPECT_EQ(game->getAimSystem().getSight().getDivergence(), divergence);
    }
}

TEST_F(WeaponTest, ShotsLeaveHalfThePictureWidthFromTheCentreOrTheCentreWithoutAPicture) {
    Player* bare = nullptr;  // of a role that does not exist, so its weapons have no pictures
    Gun* pictureless = nullptr;
    std::string printed = GrevanTest::printedBy([&] {
        bare = new Player("bare", "nobody");
        bare->setPosition(Vector(300, 200));
        objects().addObject(std::unique_ptr<Player>(bare));
        pictureless = arm<Gun>(bare, 0);
    });
    EXPECT_NE(printed.find("Failed to load bitmap image/role/nobody/gun.bmp"), std::string::npos) << printed;
    for (Gun* gun : {arm<Gun>(me, 0), pictureless}) {
        int cx = gun->getOwner()->getCentralX();
        int cy = gun->getOwner()->getCentralY();
        EXPECT_EQ(playsOf("gun", [&] { EXPECT_TRUE(gun->fire(cx + 500, cy)); }), 1);
        std::vector<Grevan::Bullet*> bullets = GrevanTest::objectsOf<Grevan::Bullet>(objects());
        ASSERT_FALSE(bullets.empty());
        EXPECT_EQ(std::make_pair(bullets.back()->getX(), bullets.back()->getY()),
                  std::make_pair(cx + gun->getWidth() / 2, cy));
    }
    EXPECT_EQ(pictureless->getWidth(), 0);
    clear_to_color(buffer, 0);
    pictureless->draw(buffer, 50, 50);
    EXPECT_EQ(GrevanTest::pixelsOf(buffer, 0), 800 * 600) << "drawn as nothing";
}

}  // namespace

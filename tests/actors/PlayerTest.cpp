#include "actors/Player.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "actors/Blood.h"
#include "actors/Gun.h"
#include "actors/Pistol.h"
#include "support/CombatScene.h"

using Grevan::Player;
using Grevan::PlayerAction;
using GrevanTest::objectsOf;
using GrevanTest::printedBy;

namespace {

using PlayerTest = CombatScene;

TEST_F(PlayerTest, InitializeDrawsTheIdThenTheColourBlueFirst) {
    srand(77);
    int id = rand();
    int first = rand();
    int second = rand();
    int third = rand();
    srand(77);
    Player p;
    EXPECT_EQ(p.getPlayerId(), id);
    EXPECT_EQ(p.getColor(), makecol(third % 255, second % 255, first % 255));
}

TEST_F(PlayerTest, ReleasingOneKeyHandsTheWalkToTheOtherAndReleasingBothStopsEverything) {
    Player p("walker", "soldier");
    struct Step {
        void (Player::*command)(bool);
        bool on, walking;
        int direction;
    } steps[] = {
        {&Player::moveLeft, true, true, 1},   {&Player::moveRight, true, true, 0},
        {&Player::moveLeft, false, true, 0},  {&Player::moveLeft, true, true, 1},
        {&Player::moveRight, false, true, 1}, {&Player::moveLeft, false, false, 1},
    };
    p.fire(1, 2);
    p.jump(true);
    for (const Step& s : steps) {
        (p.*s.command)(s.on);
        EXPECT_EQ(p.getState() == Grevan::PLAYER_WALK, s.walking) << &s - steps;
        EXPECT_EQ(p.getAnimation().getDirection(), s.direction) << &s - steps;
    }
    EXPECT_FALSE(p.isFiring()) << "stopping also stops firing";
    EXPECT_FALSE(p.isJumping()) << "stopping also stops jumping";
}

TEST_F(PlayerTest, ScriptedWalkRunsAtThreePixelsAFrameAndClosesTheLastPixelsSlower) {
    struct Case {
        float start;
        std::vector<float> positions;  // x after each move while the walk is on
    } cases[] = {{90.0f, {93.0f, 96.0f, 99.0f, 100.0f}},
                 {110.0f, {107.0f, 104.0f, 101.0f, 100.0f}},
                 {100.5f, {}},
                 {98.5f, {100.0f}}};
    for (const Case& c : cases) {
        Player p("walker", "soldier");
        p.setPosition(Vector(c.start, 0.0f));
        p.setAction(PlayerAction{Grevan::ACTION_MOVE_TO, 100, 0});
        std::vector<float> seen;
        for (int frame = 0; frame < 10 && p.isPlayerActionOn(); frame++) {
            p.move();
            if (p.isPlayerActionOn()) {
                seen.push_back(p.getPosition().x);
            }
        }
        EXPECT_FALSE(p.isPlayerActionOn()) << "from " << c.start;
        EXPECT_EQ(seen, c.positions) << "from " << c.start;
        EXPECT_EQ(p.getState(), Grevan::PLAYER_STAND) << "a scripted walk leaves the state alone";
    }
}

TEST_F(PlayerTest, DamageFollowsTheRowHitOnlyTheTopRowIsAHeadShotAndEveryHitStopsTheWalk) {
    loadLevel(false);
    Player* target = addStandingPlayer(100);
    int top = target->getY();
    int h = target->getHeight();
    struct Case {
        int y, damage;
        bool headshot;
    } cases[] = {{top, 10, true}, {top + 1, 9, false}, {top + h / 2, 5, false}, {top + h - 1, 0, false}};
    for (const Case& c : cases) {
        target->setHealth(100);
        target->moveRight(true);
        size_t bloodBefore = objectsOf<Grevan::Blood>(objects()).size();
        EXPECT_EQ(target->hit(target->getX() + 3, c.y, Vector(1.0f, 0.0f)), c.headshot)
            << "row " << c.y - top;
        EXPECT_EQ(target->getHealth(), 100 - c.damage) << "row " << c.y - top;
        EXPECT_FALSE(target->isMovingRight());
        runFrames(1);  // blood joins the registry at the end of the frame
        EXPECT_EQ(objectsOf<Grevan::Blood>(objects()).size() - bloodBefore, c.damage) << "a drop a point";
    }
}

TEST_F(PlayerTest, TenTopRowHitsKillAndRaiseOnKillOnceCorpseHitsOnlyBleed) {
    loadLevel(false);
    Player* target = addStandingPlayer(100);
    for (int i = 1; i <= 12; i++) {
        EXPECT_TRUE(target->hit(target->getX(), target->getY(), Vector(1.0f, 0.0f)));
        EXPECT_EQ(target->isAlive(), i < 10) << "after hit " << i;
    }
    EXPECT_EQ(target->getHealth(), 0);
    EXPECT_EQ(target->getState(), Grevan::PLAYER_DEAD);
    std::string at = std::to_string(target->getX()) + " " + std::to_string(target->getY());
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()),
              "OnKill  " + std::to_string(target->getId()) + " " + at);
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "none") << "raised once";
    runFrames(1);
    EXPECT_EQ(objectsOf<Grevan::Blood>(objects()).size(), 120u);
}

TEST_F(PlayerTest, HoldingJumpJumpsOnEveryLandingAndNeverInTheAir) {
    loadLevel(false);
    Player* p = addStandingPlayer(100);
    int groundY = p->getY();
    p->jump(true);
    int takeOffs = 0;
    for (int frame = 0; frame < 400; frame++) {
        bool wasFree = p->isFree();
        float vyBefore = p->getVelocity().y;
        runFrames(1);
        if (vyBefore >= 0.0f && p->getVelocity().y < -1.0f) {
            takeOffs++;
            EXPECT_FALSE(wasFree) << "a jump started in the air at frame " << frame;
        }
    }
    EXPECT_GE(takeOffs, 3) << "one jump per landing";
    p->jump(false);
    runFrames(200);
    EXPECT_EQ(p->getY(), groundY);
}

TEST_F(PlayerTest, SlotZeroIsNeverUsedButIsTheCurrentWeaponAtEquipmentZero) {
    loadLevel(false);
    Player* p = addStandingPlayer(100);
    Grevan::Gun* inSlotZero = new Grevan::Gun(p);
    inSlotZero->addBullets(30);
    p->setWeapon(0, inSlotZero);
    EXPECT_EQ(p->getCurrentWeapon(), inSlotZero);
    p->fire(600, p->getY());
    runFrames(120);
    EXPECT_EQ(inSlotZero->getBulletCurrent(), 0) << "never moved, so never reloaded";
    EXPECT_EQ(inSlotZero->getBulletTotal(), 30) << "never fired";
}

TEST_F(PlayerTest, ReplacingTheWeaponInHandDeselectsIt) {
    Player p("holder", "soldier");
    p.setWeapon(1, new Grevan::Gun(&p));
    p.setWeapon(2, new Grevan::Pistol(&p));
    p.setEquipment(1);
    p.setWeapon(1, new Grevan::Pistol(&p));  // the old gun is deleted (LeakSanitizer watches)
    EXPECT_EQ(p.getEquipment(), 0);
    p.setEquipment(2);
    p.setWeapon(1, new Grevan::Gun(&p));
    EXPECT_EQ(p.getEquipment(), 2) << "replacing another slot keeps the choice";
    EXPECT_EQ(printedBy([&p] { p.setWeapon(4, new Grevan::Gun(&p)); }), "No weapon slot 4\n");
}

TEST_F(PlayerTest, RoleWithoutWalkingActionLeavesThePlayerWithoutAPicture) {
    std::string strip = folder.writeStrip("die.bmp", 10, 12, 2);
    folder.writeFile("dying-only/config.dat", "1\n3 0 0 " + strip + " 2\n0 0 10 12\n10 0 20 12\n");
    for (std::string role : {std::string("nobody"), folder.reachFrom("image/role", "dying-only")}) {
        std::unique_ptr<Player> p;
        std::string printed = printedBy([&] { p = std::make_unique<Player>("ghost", role); });
        EXPECT_NE(printed.find("Role " + role + " has no picture"), std::string::npos) << printed;
        p->moveRight(true);
        p->move();
        p->die();
        p->move();
        clear_to_color(buffer, 0);
        p->draw(buffer, 0, 0);
        EXPECT_EQ(p->getWidth(), 0) << role;
        EXPECT_EQ(p->getHeight(), 0) << role;
        EXPECT_EQ(getpixel(buffer, 2, 2), 0) << role;
    }
}

TEST_F(PlayerTest, PlayersWalkThroughCorpsesAndBumpingEndsAScriptedWalk) {
    loadLevel(true);
    Player* walker = addStandingPlayer(300);
    addStandingPlayer(360)->die();
    walker->setAction(PlayerAction{Grevan::ACTION_MOVE_TO, 470, 0});
    runFrames(200);
    EXPECT_FALSE(walker->isPlayerActionOn());
    EXPECT_LT(walker->getX() + walker->getWidth(), kWallLeft) << "stopped by the wall";
    EXPECT_GT(walker->getX(), 400) << "passed the corpse";
}

TEST_F(PlayerTest, ALivePlayerDrawsTheWeaponInHandAndACorpseDrawsNone) {
    loadLevel(false);
    Player* p = addStandingPlayer(100);
    p->setWeapon(1, new Grevan::Gun(p));
    p->setWeapon(2, new Grevan::Pistol(p));
    BITMAP* bare = create_bitmap(buffer->w, buffer->h);
    struct Case {
        bool alive;
        int equipment;
        bool weaponDrawn;
    } cases[] = {{true, 1, true}, {true, 2, true}, {true, 3, false}, {false, 1, false}};
    for (const Case& c : cases) {
        p->setHealth(c.alive ? 100 : 0);
        p->setEquipment(c.equipment);
        clear_to_color(buffer, 0);
        p->draw(buffer, 0, 0);
        p->setEquipment(0);
        clear_to_color(bare, 0);
        p->draw(bare, 0, 0);
        EXPECT_EQ(GrevanTest::differingPixels(buffer, bare) > 0, c.weaponDrawn) << "slot " << c.equipment;
    }
    destroy_bitmap(bare);
}

}  // namespace

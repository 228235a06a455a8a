#include "actors/Player.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <tuple>

#include "actors/Blood.h"
#include "actors/Gun.h"
#include "actors/Pistol.h"
#include "support/CombatScene.h"

using Grevan::Player;
using Grevan::PlayerAction;
using GrevanTest::printedBy;

namespace {

using PlayerTest = CombatScene;

// A player's colour marks its own pixels in the block map, where outlines are white and empty
// pixels black: no two players may share one, nor take either of those.
TEST_F(PlayerTest, EveryPlayerGetsAColourOfItsOwnThatIsNeitherWhiteNorBlack) {
    std::set<int> colours;
    for (int i = 0; i < 50; i++) {
        const int colour = Player().getColor();
        EXPECT_TRUE(colour != makecol(255, 255, 255) && colour != 0) << colour;
        colours.insert(colour);
    }
    EXPECT_EQ(colours.size(), 50u);
}

TEST_F(PlayerTest, ReleasingOneKeyHandsTheWalkToTheOtherAndReleasingBothStopsEverything) {
    // The key, pressed or released, walking afterwards, direction afterwards (1 faces left).
    const std::tuple<const char*, bool, bool, int> steps[] = {
        {"left", true, true, 1}, {"right", true, true, 0},  {"left", false, true, 0},
        {"left", true, true, 1}, {"right", false, true, 1}, {"left", false, false, 1}};
    me->fire(1, 2);
    me->jump(true);
    for (auto [key, pressed, walking, direction] : steps) {
        std::string(key) == "left" ? me->moveLeft(pressed) : me->moveRight(pressed);
        EXPECT_EQ(me->getState() == Grevan::PLAYER_WALK, walking) << key << " " << pressed;
        EXPECT_EQ(me->getAnimation().getDirection(), direction) << key << " " << pressed;
    }
    EXPECT_FALSE(me->isFiring() || me->isJumping()) << "stopping also stops firing and jumping";
}

TEST_F(PlayerTest, ScriptedWalkRunsAtThreePixelsAFrameAndClosesTheLastPixelsSlower) {
    const std::pair<float, std::vector<float>> cases[] = {{90.0f, {93.0f, 96.0f, 99.0f, 100.0f}},
                                                          {110.0f, {107.0f, 104.0f, 101.0f, 100.0f}},
                                                          {100.5f, {}},
                                                          {98.5f, {100.0f}}};
    for (auto [start, positions] : cases) {  // x after each move while the walk is on
        Player p("walker", "soldier");
        p.setPosition(Vector(start, 0.0f));
        p.setAction(PlayerAction{Grevan::ACTION_MOVE_TO, 100, 0});
        std::vector<float> seen;
        for (int frame = 0; frame < 10 && p.isPlayerActionOn(); frame++) {
            p.move();
            if (p.isPlayerActionOn()) {
                seen.push_back(p.getPosition().x);
            }
        }
        EXPECT_FALSE(p.isPlayerActionOn()) << "from " << start;
        EXPECT_EQ(seen, positions) << "from " << start;
        EXPECT_EQ(p.getState(), Grevan::PLAYER_STAND) << "a scripted walk leaves the state alone";
    }
}

TEST_F(PlayerTest, DamageFollowsTheRowOnlyTheTopRowIsAHeadShotAndOnlyTheKillingHitRaisesOnKill) {
    int top = me->getY();
    const std::tuple<int, int, bool> cases[] = {
        {0, 10, true}, {1, 9, false}, {me->getHeight() / 2, 5, false}, {me->getHeight() - 1, 0, false}};
    for (auto [row, damage, headshot] : cases) {
        me->setHealth(100);
        me->moveRight(true);
        runFrames(1);
        EXPECT_EQ(me->hit(me->getX() + 3, top + row, Vector(1.0f, 0.0f)), headshot) << "row " << row;
        EXPECT_EQ(me->getHealth(), 100 - damage) << "row " << row;
        EXPECT_FALSE(me->isMovingRight()) << "every hit stops the walk";
    }
    me->setHealth(10);
    auto blood = [&] { return GrevanTest::objectsOf<Grevan::Blood>(objects()).size(); };
    runFrames(1);
    size_t before = blood();
    me->hit(me->getX(), top, Vector(1.0f, 0.0f));
    EXPECT_EQ(me->getState(), Grevan::PLAYER_DEAD);
    me->hit(me->getX(), top, Vector(1.0f, 0.0f));
    me->hit(me->getX(), top + me->getHeight() / 2, Vector(1.0f, 0.0f));
    std::string at = std::to_string(me->getX()) + " " + std::to_string(top);
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()),
              "OnKill  " + std::to_string(me->getId()) + " " + at);
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "none") << "raised once";
    runFrames(1);
    EXPECT_EQ(blood() - before, 25u) << "a drop a point of damage, from a corpse too";
}

TEST_F(PlayerTest, HoldingJumpJumpsOnEveryLandingAndNeverInTheAir) {
    int groundY = me->getY();
    me->jump(true);
    int takeOffs = 0;
    for (int frame = 0; frame < 400; frame++) {
        bool wasFree = me->isFree();
        float vyBefore = me->getVelocity().y;
        runFrames(1);
        if (vyBefore >= 0.0f && me->getVelocity().y < -1.0f) {
            takeOffs++;
            EXPECT_FALSE(wasFree) << "a jump started in the air at frame " << frame;
        }
    }
    EXPECT_GE(takeOffs, 3) << "one jump per landing";
    me->jump(false);
    runFrames(200);
    EXPECT_EQ(me->getY(), groundY);
}

TEST_F(PlayerTest, SlotZeroIsNeverUsedAndReplacingTheWeaponInHandDeselectsIt) {
    Grevan::Gun* inSlotZero = new Grevan::Gun(me);
    inSlotZero->addBullets(30);
    me->setWeapon(0, std::unique_ptr<Grevan::Gun>(inSlotZero));
    EXPECT_EQ(me->getCurrentWeapon(), inSlotZero);
    me->fire(600, me->getY());
    runFrames(120);
    EXPECT_EQ(inSlotZero->getBulletTotal(), 30) << "never fired";
    EXPECT_EQ(inSlotZero->getBulletCurrent(), 0) << "never moved, so never reloaded";

    me->setWeapon(1, std::make_unique<Grevan::Gun>(me));
    me->setWeapon(2, std::make_unique<Grevan::Pistol>(me));
    me->setEquipment(1);
    me->setWeapon(1, std::make_unique<Grevan::Pistol>(me));  // the old gun is deleted (LeakSanitizer watches)
    EXPECT_EQ(me->getEquipment(), 0);
    me->setEquipment(2);
    me->setWeapon(1, std::make_unique<Grevan::Gun>(me));
    EXPECT_EQ(me->getEquipment(), 2) << "replacing another slot keeps the choice";
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
        EXPECT_EQ(std::make_pair(p->getWidth() + p->getHeight(), GrevanTest::pixelsOf(buffer, 0)),
                  std::make_pair(0, 800 * 600))
            << role;
    }
}

TEST_F(PlayerTest, PlayersWalkThroughCorpsesAndBumpingEndsAScriptedWalk) {
    loadLevel(true);
    Player* walker = addStandingPlayer(300);
    addStandingPlayer(360)->die();
    walker->setAction(PlayerAction{Grevan::ACTION_MOVE_TO, 470, 0});
    runFrames(200);
    EXPECT_FALSE(walker->isPlayerActionOn());
    EXPECT_TRUE(walker->getX() > 400 && walker->getX() + walker->getWidth() < kWallLeft)
        << "past the corpse, at the wall";
}

TEST_F(PlayerTest, ALivePlayerDrawsTheWeaponInHandAndACorpseDrawsNone) {
    me->setWeapon(1, std::make_unique<Grevan::Gun>(me));
    me->setWeapon(2, std::make_unique<Grevan::Pistol>(me));
    BITMAP* bare = create_bitmap(buffer->w, buffer->h);
    const std::tuple<bool, int, bool> cases[] = {
        {true, 1, true}, {true, 2, true}, {true, 3, false}, {false, 1, false}};
    for (auto [alive, inHand, weaponDrawn] : cases) {
        me->setHealth(alive ? 100 : 0);
        for (int equipment : {0, inHand}) {
            me->setEquipment(equipment);
            clear_to_color(equipment ? buffer : bare, 0);
            me->draw(equipment ? buffer : bare, 0, 0);
        }
        EXPECT_EQ(GrevanTest::differingPixels(buffer, bare) > 0, weaponDrawn) << "slot " << inHand;
    }
    destroy_bitmap(bare);
}

// The figures docs/maps.md gives level authors, found by playing the soldier on a floor 6000 wide:
// each row of the document's table must be there with the figure the game's physics gives.
TEST_F(PlayerTest, TheSizeAndJumpFiguresOfTheMapsDocumentAreTheGamesOwn) {
    std::string level = "0 6000 400 40 60 80 6";
    for (int x = 0; x < 6000; x += 1000) {
        level += " " + folder.reachFrom("image/object", "floor.bmp") + " 0 0 " + std::to_string(x) + " " +
                 std::to_string(kFloorTop) + " 0 0 0 0";
    }
    const std::string path = folder.writeFile("floor.map", level);
    struct Jump {
        std::string takeOffSpeed;  // pixels a frame
        int rise, reach, frames;   // of the feet, from take-off to landing, in the air
    };
    // Runs right for the frames given (none: stands), jumps once, and keeps the direction key held
    // in the air when asked.
    auto jump = [&](int runUp, bool holdDirection, float speedDivisor = 1.0f) {
        game->loadMap(path.c_str());
        me = addStandingPlayer(20);
        me->moveRight(runUp > 0 || holdDirection);
        runFrames(runUp);
        char speed[16];
        std::snprintf(speed, sizeof speed, "%.2f", me->getVelocity().x / speedDivisor);
        const int ground = me->getY(), start = me->getX();
        int top = ground, frames = 0;
        for (me->jump(true); frames == 0 || (me->isFree() && frames < 500); frames++) {
            runFrames(1);
            me->jump(false);
            top = std::min(top, me->getY());
        }
        EXPECT_EQ(me->getY(), ground) << "landed on the floor again";
        return Jump{speed, ground - top, me->getX() - start, frames};
    };
    const Jump standing = jump(0, false), steered = jump(0, true), running = jump(150, true);
    const std::string rows[] = {
        "the player's size | " + std::to_string(me->getWidth()) + " × " + std::to_string(me->getHeight()) +
            " pixels",
        "running: speed gained each frame | " + jump(10, true, 10.0f).takeOffSpeed + " pixels a frame",
        "top running speed | " + running.takeOffSpeed + " pixels a frame",
        "standing jump: the feet rise | " + std::to_string(standing.rise) + " pixels",
        "standing jump: time in the air | " + std::to_string(standing.frames) + " frames",
        "standing jump, a direction held in the air: reach | " + std::to_string(steered.reach) + " pixels",
        "running jump at top speed: the feet rise | " + std::to_string(running.rise) + " pixels",
        "running jump at top speed: reach | " + std::to_string(running.reach) + " pixels",
    };
    std::ifstream file("../docs/maps.md");  // the tests run in data/
    const std::string document{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    for (const std::string& row : rows) {
        EXPECT_NE(document.find("| " + row + " |"), std::string::npos) << "docs/maps.md should hold the row\n"
                                                                       << row;
    }
}

}  // namespace

// The game's host functions, each through a script run against a headless game.

#include "scripting/HostFunctions.h"

#include <future>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "actors/AIPlayer.h"
#include "actors/Grenade.h"
#include "actors/Gun.h"
#include "actors/Pistol.h"
#include "actors/PresentBox.h"
#include "core/GameLock.h"
#include "script/VeskScript.h"
#include "scripting/HostAccess.h"
#include "scripting/HostArguments.h"
#include "scripting/ScriptSystem.h"
#include "support/CombatScene.h"

using Grevan::Player;
using GrevanTest::printedBy;

namespace {

class HostFunctions : public CombatScene {
  protected:
    void SetUp() override {
        CombatScene::SetUp();
        Grevan::game = game.get();
    }

    // Runs `body` as the script's Main, with Me holding the id of `me` (0 once it is gone), in an
    // engine with the game's host functions; gives what it printed.
    std::string run(const std::string& body) {
        VeskScript script;
        Grevan::ScriptSystem::registerHostFunctions(script);
        std::string source = "FUNCTION Main()\n  Me = " + std::to_string(me ? me->getId() : 0) + "\n" + body +
                             "\nEND FUNCTION\n";
        EXPECT_TRUE(script.parse(source)) << script.getLastError();
        return printedBy([&] { EXPECT_TRUE(script.run("Main")) << script.getLastError(); });
    }
    // The same, on a thread of its own, as the game runs scripts.
    std::future<std::string> runAside(const std::string& body) {
        return std::async(std::launch::async, [this, body] { return run(body); });
    }
};

// A player's name, colour, role, top left corner, and for an opponent whether a script steers it.
std::string describe(const Player* p) {
    auto* opponent = dynamic_cast<const Grevan::AIPlayer*>(p);
    return p->getName() + " " + std::to_string(p->getColor()) + " " + p->getRole() + " " +
           std::to_string(p->getX()) + " " + std::to_string(p->getY()) +
           (opponent ? opponent->isUnderControl() ? " scripted" : " free" : "");
}

// An object's top left corner, size, and whether it shows.
std::string placeOf(const Grevan::Object* o) {
    return std::to_string(o->getX()) + " " + std::to_string(o->getY()) + " " + std::to_string(o->getWidth()) +
           " " + std::to_string(o->getHeight()) + (o->isVisible() ? " shown" : " hidden");
}

// setPlayerAIMode hands an opponent to the script (1) or back to itself (0).
TEST_F(HostFunctions, AddPlayerMakesTheLastHumanTheUsersAndOnlyOpponentsTakeAnAIMode) {
    run("addPlayer(0, 255, \"soldier\", \"Ann\", 100, 200)\n"
        "B = addPlayer(0, 65280, \"soldier\", \"Bo\", 300, 210)\n"
        "C = addPlayer(1, 16711680, \"raider\", \"Cy\", 500, 220)\n"
        "setPlayerAIMode(C, 1)\nsetPlayerAIMode(B, 1)");
    const std::vector<Player*>& players = game->getPlayers();
    ASSERT_EQ(players.size(), 4u);
    EXPECT_EQ(game->getMainPlayer(), players[2]);
    EXPECT_EQ(describe(players[1]) + ", " + describe(players[2]) + ", " + describe(players[3]),
              "Ann 255 soldier 100 200, Bo 65280 soldier 300 210, Cy 16711680 raider 500 220 scripted");
    run("setPlayerAIMode(" + std::to_string(players[3]->getId()) + ", 0)");
    EXPECT_EQ(describe(players[3]), "Cy 16711680 raider 500 220 free");
}

TEST_F(HostFunctions, AddPlayerWeaponFillsAnEmptySlotByItsNumberAndThenOnlyAddsRounds) {
    EXPECT_EQ(run("addPlayerWeapon(Me, 1, 10)\naddPlayerWeapon(Me, 1, 5)\naddPlayerWeapon(Me, 2, 7)\n"
                  "addPlayerWeapon(Me, 3, 2)\naddPlayerWeapon(Me, 0, 9)\naddPlayerWeapon(Me, 4, 9)\n"
                  "addPlayerWeapon(Me, 6, 9)\naddPlayerWeapon(Me, -1, 9)\naddPlayerWeapon(Me + 1000, 1, 9)"),
              "")
        << "other slots and unknown ids: nothing, silently";
    EXPECT_EQ(me->getWeapon(0), nullptr);
    ASSERT_NE(dynamic_cast<Grevan::Pistol*>(me->getWeapon(1)), nullptr);
    ASSERT_NE(dynamic_cast<Grevan::Gun*>(me->getWeapon(2)), nullptr);
    ASSERT_NE(dynamic_cast<Grevan::Grenade*>(me->getWeapon(3)), nullptr);
    EXPECT_EQ(std::make_tuple(me->getWeapon(1)->getBulletTotal(), me->getWeapon(2)->getBulletTotal(),
                              me->getWeapon(3)->getBulletTotal()),
              std::make_tuple(15, 7, 2));
}

// A box shows its picture where it is put; a hidden one, without a picture, has the size given and
// says so. Player functions pass boxes and unknown ids over.
TEST_F(HostFunctions, PresentsArePlacedAndPlayerFunctionsFindOnlyPlayers) {
    std::string printed =
        run("Box = addPresent(\"ammo\", 300, 200)\nHidden = addHiddenPresent(10, 20, 30, 40)\n"
            "setPlayerHealth(Box, 5)\n"
            "print(isNull(playerX(Box)), isNull(playerY(Hidden)), isNull(playerX(123456)), \" \")\n"
            "print(playerX(Me), \" \", playerY(Me), \" \", Box, \" \", Hidden)");
    std::vector<Grevan::PresentBox*> boxes = GrevanTest::objectsOf<Grevan::PresentBox>(objects());
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(printed, "add hidden present 10, 20, 30, 40\n111 " + std::to_string(me->getCentralX()) + " " +
                           std::to_string(me->getCentralY()) + " " + std::to_string(boxes[0]->getId()) + " " +
                           std::to_string(boxes[1]->getId()));
    // The picture image/object/ammo.bmp is 30 x 26.
    EXPECT_EQ(placeOf(boxes[0]), "300 200 30 26 shown");
    EXPECT_EQ(placeOf(boxes[1]), "10 20 30 40 shown");
}

// switchWeapon takes any slot; the pistol in slot 1 fires once it is in hand again.
TEST_F(HostFunctions, OrdersReachThePlayer) {
    Grevan::Pistol* pistol = arm<Grevan::Pistol>(me, 0);
    run("switchWeapon(Me, 3)\nplayerDoAim(Me, 400, 120)\nplayerDoMove(Me, 160, 77)\nsetPlayerHealth(Me, 40)");
    const Grevan::PlayerAction& action = me->getAction();
    EXPECT_EQ(std::make_tuple(me->getEquipment(), me->getAimX(), me->getAimY(), me->getHealth()),
              std::make_tuple(3, 400, 120, 40));
    EXPECT_EQ(std::make_tuple(me->isPlayerActionOn(), action.type, action.x, action.y),
              std::make_tuple(true, Grevan::ACTION_MOVE_TO, 160, 77));
    const int loaded = pistol->getBulletCurrent();
    me->moveRight(true);
    run("switchWeapon(Me, 1)\nplayerDoFire(Me, 400, 300)\nplayerDoStop(Me)");
    EXPECT_EQ(std::make_tuple(pistol->getBulletCurrent(), me->isPlayerActionOn(), me->isMovingRight()),
              std::make_tuple(loaded - 1, false, false));
    run("die(Me)");
    EXPECT_EQ(me->getState(), Grevan::PLAYER_DEAD);
}

TEST_F(HostFunctions, ArgumentsAreReadAtFixedDepthsFromTheTop) {
    run("setPlayerHealth(999, Me, 40)");
    EXPECT_EQ(me->getHealth(), 40);
    std::vector<VeskVariable> stack(2);
    stack[0].setInteger(7);
    stack[1].setString("last");
    Grevan::HostArguments four(stack, HOST_ADD_HIDDEN_PRESENT);  // four arguments
    Grevan::HostArguments one(stack, HOST_DIE);                  // one
    EXPECT_EQ(std::make_tuple(four.text(1), four.integer(2), four.integer(3), four.text(4), one.text(1)),
              std::make_tuple("undefined", 0, 7, "last", "last"));
}

// system runs its command after what the script printed so far; a refused level leaves the one
// loaded.
TEST_F(HostFunctions, ObjectsTheRobotControlTheShellTheLevelAndTheGameEnd) {
    Grevan::Object* piece = objects().getObjects().front();
    piece->hide();
    game->createRobot();
    EXPECT_EQ(run("showObject(" + std::to_string(piece->getId()) +
                  ")\nshowObject(987654)\nlockControl(1)\n"
                  "showRobot(1)\nprint(\"before \")\nsystem(\"echo from the shell\")\nprint(\"after\")"),
              "Object not found 987654\nbefore from the shell\nafter");
    EXPECT_EQ(std::make_tuple(piece->isVisible(), game->canControl(), game->getRobot()->isVisible()),
              std::make_tuple(true, false, true));
    run("lockControl(0)\nshowRobot(0)");
    EXPECT_EQ(std::make_pair(game->canControl(), game->getRobot()->isVisible()), std::make_pair(true, false));
    EXPECT_EQ(run("loadMap(\"" + folder.writeFile("small.map", "0 900 500 1 2 3 0") + "\")"), "");
    me = nullptr;  // the new level has no players
    EXPECT_NE(run("loadMap(\"no/such.map\")"), "");
    EXPECT_EQ(map().getWidth(), 900);
    run("endgame()");
    EXPECT_FALSE(game->isRunning());
}

TEST_F(HostFunctions, SayShowsTheTextInABubbleAndWaitsUntilItHasGone) {
    EXPECT_EQ(run("say(123456, \"nobody\")\nprint(\"back\")"), "back") << "an unknown id returns at once";
    std::future<std::string> said = runAside("say(Me, \"Hello there\")\nprint(\"said\")");
    Grevan::Dialog& bubble = game->getDialog();
    for (int i = 0; i < 200 && !bubble.isVisible(); i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ASSERT_TRUE(bubble.isVisible());
    EXPECT_EQ(bubble.getText(), "Hello there");
    EXPECT_EQ(said.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    // While the script waits, the main loop has the world: frames run until the bubble times out.
    runFrames(Grevan::Dialog::kDefaultDelay + 1);
    EXPECT_EQ(said.get(), "said");
}

class WaitingHostFunction : public HostFunctions, public testing::WithParamInterface<const char*> {};

TEST_P(WaitingHostFunction, ReturnsOnceTheGameHasEnded) {
    std::future<std::string> waiting = runAside(std::string(GetParam()) + "\nprint(\"back\")");
    EXPECT_EQ(waiting.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    game->endGame();
    ASSERT_EQ(waiting.wait_for(std::chrono::seconds(1)), std::future_status::ready);
    EXPECT_EQ(waiting.get(), "back");
}

INSTANTIATE_TEST_SUITE_P(Waits, WaitingHostFunction,
                         testing::Values("delay(600000)", "waitForPlayerAction(123456)", "fadeIn()",
                                         "fadeOut()", "say(Me, \"Hello\")"));

// The functions that touch the world wait for the game lock; those that only wait, print or
// flag do not need it, and no function holds it while it waits.
TEST_F(HostFunctions, OnlyFunctionsThatTouchTheWorldTakeTheGameLock) {
    const std::vector<const char*> calls[] = {
        {"print(\"x\")", "isNull(1)", "system(\"true\")", "delay(1)", "lockControl(0)"},
        {"playerX(Me)", "setPlayerHealth(Me, 9)", "showObject(Me)", "addHiddenPresent(1, 2, 3, 4)",
         "loadMap(\"no/such.map\")", "playerDoStop(Me)", "waitForPlayerAction(Me)"}};  // lock-free, locking
    for (bool locked : {false, true}) {
        for (const char* text : calls[locked]) {
            // A call that needs the lock waits 300 ms in vain; one that does not may still need
            // seconds to start its thread (and, for system, a shell) on a busy machine.
            Grevan::lockGame();
            std::future<std::string> call = runAside(text);
            const bool finished =
                call.wait_for(std::chrono::milliseconds(locked ? 300 : 10000)) == std::future_status::ready;
            Grevan::unlockGame();
            call.get();
            EXPECT_EQ(finished, !locked) << text;
        }
    }
    std::future<std::string> waiting = runAside("delay(1000)");
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    Grevan::GameLockGuard taken;  // would hang here if delay held the lock
    EXPECT_EQ(waiting.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
}

}  // namespace

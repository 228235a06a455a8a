#include "core/Game.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/CombatScene.h"
#include "support/GuiFolder.h"
#include "support/Probe.h"

using Grevan::Game;
using Grevan::Player;

namespace {

TEST(Game, StartWithoutAVideoModeTriesBothModesAndFails) {
    Game game(Grevan::StartMode::HEADLESS);
    bool started = true;
    EXPECT_EQ(GrevanTest::printedBy([&] { started = game.start(); }),
              "Failed to set video mode 800*600*32\nFailed to set video mode 640*480*32\n");
    EXPECT_FALSE(started);
    game.getScreen().flip();  // no pages: nothing to do, and no crash
}

using GameFrame = CombatScene;

TEST_F(GameFrame, FrameMovesReapsAndThenWritesOnlyTheFpsLineWithoutAMainPlayer) {
    Probe* doomed = new Probe(200, 300, 10, 10);
    bool deleted = false;
    doomed->deleted = &deleted;
    doomed->onMove = [doomed] { doomed->die(); };
    objects().addObject(std::unique_ptr<Probe>(doomed));
    game->playFrame(buffer, 17);
    EXPECT_TRUE(deleted) << "moved, died and reaped in the frame";
    EXPECT_EQ(map().getClientX(), 0) << "no main player: the camera stays";
    // The status line is written over the background with the count after reaping.
    BITMAP* expected = create_bitmap(800, 10);
    clear_to_color(expected, makecol(40, 60, 80));
    textprintf_ex(expected, font, 20, 0, makecol(255, 255, 255), -1, "FPS: %d  Objects: %d", 17, 2);
    BITMAP* top = create_sub_bitmap(buffer, 0, 0, 800, 10);
    EXPECT_EQ(GrevanTest::differingPixels(top, expected), 0);
    destroy_bitmap(top);
    destroy_bitmap(expected);
}

TEST_F(GameFrame, AnIdSharedByTwoPlayersFindsTheFirstAdded) {
    srand(3);
    Player* first = new Player("first", "soldier");
    srand(3);
    Player* second = new Player("second", "soldier");
    game->addPlayer(std::unique_ptr<Player>(first));
    game->addPlayer(std::unique_ptr<Player>(second));
    EXPECT_EQ(game->getPlayer(second->getPlayerId()), first);
    EXPECT_EQ(game->getPlayer(first->getPlayerId() + 1), nullptr);
}

TEST_F(GameFrame, LockingControlStopsTheMainPlayerAndLoadingAMapForgetsIt) {
    EXPECT_FALSE(game->canControl()) << "until the script unlocks it";
    game->unlockControl();
    me->moveRight(true);
    game->lockControl();
    EXPECT_FALSE(game->canControl());
    EXPECT_TRUE(me->isMovingRight()) << "without a main player it only clears the flag";
    game->setMainPlayer(me);
    game->lockControl();
    EXPECT_FALSE(me->isMovingRight());
    loadLevel(true);
    EXPECT_EQ(game->getPlayers(), std::vector<Player*>{me}) << "only the new level's own player";
    EXPECT_EQ(game->getMainPlayer(), nullptr);
}

TEST_F(GameFrame, DrawsTheStatusBarThenTheRobotOnTheScreenThenTheBubbleAndHidesTheSight) {
    const int background = makecol(40, 60, 80);
    const int sight = makecol(0, 255, 0);
    GuiFolder gui;
    gui.runInside([this] {
        game->getInfoBar().initialize();
        game->createRobot();
    });
    game->getInfoBar().show();
    Grevan::Robot* robot = game->getRobot();
    robot->show();
    Player* speaker = addStandingPlayer(900);
    game->setMainPlayer(speaker);
    runFrames(1);
    EXPECT_EQ(map().getClientX(), 200) << "centred on the main player, then held in the level";
    EXPECT_GT(GrevanTest::pixelsOf(buffer, makecol(255, 255, 255), 200, 0, 500, 7), 0) << "its score line";
    game->getAimSystem().setX(600);
    game->getAimSystem().setY(450);
    Grevan::Dialog& bubble = game->getDialog();
    bubble.setDelay(1);
    bubble.setPosition(speaker->getCentralX(), speaker->getY()).setText("Hello").show();
    runFrames(1);
    EXPECT_EQ(getpixel(buffer, 128, 55), GuiFolder::colourOf("blood")) << "the health bar";
    EXPECT_EQ(getpixel(buffer, 30, 175), GuiFolder::colourOf("ib"))
        << "the robot at (10, 150), whatever the camera";
    const int boxX = bubble.getX() - map().getClientX() + 15;
    const int boxY = bubble.getY() - map().getClientY() + 15;
    EXPECT_EQ(getpixel(buffer, boxX, boxY), GrevanTest::blendedOver(background, 0))
        << "the bubble in the world";
    EXPECT_EQ(GrevanTest::pixelsOf(buffer, sight, 550, 400, 650, 500), 0) << "no sight under a bubble";
    // The robot is drawn over the status bar.
    robot->setX(100);
    robot->setY(40);
    runFrames(1);
    EXPECT_FALSE(bubble.isVisible()) << "its one frame is over";
    EXPECT_EQ(getpixel(buffer, 130, 55), GuiFolder::colourOf("ib"));
    EXPECT_EQ(getpixel(buffer, boxX, boxY), background);
    EXPECT_GT(GrevanTest::pixelsOf(buffer, sight, 550, 400, 650, 500), 0);
    robot->hide();
    runFrames(1);
    EXPECT_EQ(getpixel(buffer, 130, 55), GuiFolder::colourOf("blood"));
}

}  // namespace

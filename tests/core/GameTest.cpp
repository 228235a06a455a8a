#include "core/Game.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/CombatScene.h"
#include "support/GuiFolder.h"
#include "support/Probe.h"

using Grevan::Player;

namespace {

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
    const int background = makecol(40, 60, 80), sight = makecol(0, 255, 0);
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
    const int boxX = bubble.getX() - map().getClientX() + 15, boxY = bubble.getY() - map().getClientY() + 15;
    // The health bar at (128, 55), the robot at (10, 150) whatever the camera, the bubble in the
    // world, and the sight at (600, 450), which a bubble hides.
    auto seen = [&] {
        runFrames(1);
        return std::make_tuple(getpixel(buffer, 128, 55), getpixel(buffer, 30, 175),
                               getpixel(buffer, boxX, boxY),
                               GrevanTest::pixelsOf(buffer, sight, 550, 400, 650, 500) > 0);
    };
    const int blood = GuiFolder::colourOf("blood"), robotColour = GuiFolder::colourOf("ib");
    EXPECT_EQ(seen(), std::make_tuple(blood, robotColour, GrevanTest::blendedOver(background, 0), false));
    // The robot is drawn over the status bar; the bubble's one frame is over.
    robot->setX(100);
    robot->setY(40);
    EXPECT_EQ(seen(), std::make_tuple(robotColour, background, background, true));
    robot->hide();
    EXPECT_EQ(std::get<0>(seen()), blood);
}

}  // namespace

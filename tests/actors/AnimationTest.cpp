#include "actors/Animation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/TestFolder.h"
#include "support/TestSupport.h"

using Grevan::Animation;
using GrevanTest::printedBy;

namespace {

// One action block of a role description: id, delay, loop, strip, and `frames` frames of
// width x height laid side by side.
std::string actionBlock(int id, int delay, int loop, const std::string& strip, int frames, int width = 4,
                        int height = 6) {
    std::string block = std::to_string(id) + " " + std::to_string(delay) + " " + std::to_string(loop) + " " +
                        strip + " " + std::to_string(frames) + "\n";
    for (int f = 0; f < frames; f++) {
        block += std::to_string(f * width) + " 0 " + std::to_string((f + 1) * width) + " " +
                 std::to_string(height) + "\n";
    }
    return block;
}

class AnimationTest : public HeadlessGame {
  protected:
    // A role with a walking action 0 (3 frames of 4 x 6, delay 2, looping) and a dying action 3
    // (2 frames of 8 x 3, delay 0, not looping).
    void SetUp() override {
        walk = folder.writeStrip("walk.bmp", 4, 6, 3);
        std::string die = folder.writeStrip("die.bmp", 8, 3, 2);
        animation.load(folder
                           .writeFile("config.dat", "2\n" + actionBlock(0, 2, 1, walk, 3) +
                                                        actionBlock(3, 0, 0, die, 2, 8, 3))
                           .c_str());
    }

    std::vector<int> framesOver(int ticks) {
        std::vector<int> seen;
        for (int i = 0; i < ticks; i++) {
            animation.nextFrame();
            seen.push_back(animation.getFrame());
        }
        return seen;
    }

    // Whether anything but black is drawn at (1, 1) of an 8 x 8 target.
    static bool drawsAnything(Animation& a) {
        BITMAP* target = create_bitmap(8, 8);
        clear_to_color(target, 0);
        a.draw(target, 0, 0);
        bool drawn = getpixel(target, 1, 1) != 0;
        destroy_bitmap(target);
        return drawn;
    }

    TestFolder folder;
    std::string walk;
    Animation animation;
};

TEST_F(AnimationTest, EachFrameShowsForDelayPlusOneTicksAndLoops) {
    EXPECT_EQ(animation.getFrameWidth(), 0) << "no action set yet";
    animation.setAction(0);
    EXPECT_EQ(animation.getFrame(), 0);
    EXPECT_EQ(framesOver(10), (std::vector<int>{1, 1, 1, 2, 2, 2, 0, 0, 0, 1}));
    EXPECT_EQ(animation.getFrameWidth(), 4);
}

TEST_F(AnimationTest, NonLoopingActionStaysOnItsLastFrameAndTheLoopOverrideWinsBothWays) {
    animation.setAction(3);
    EXPECT_EQ(framesOver(5), (std::vector<int>{1, 1, 1, 1, 1}));
    EXPECT_EQ(animation.getFrameHeight(), 3);
    animation.setAction(0, false);
    EXPECT_EQ(framesOver(9).back(), 2);
    animation.setAction(3, true);
    EXPECT_EQ(framesOver(3), (std::vector<int>{1, 0, 1}));
}

TEST_F(AnimationTest, UnknownActionKeepsActionFrameAndCountdownButLoopOverrideApplies) {
    animation.setAction(0);
    framesOver(2);  // frame 1, one tick of its delay spent
    animation.setAction(7);
    EXPECT_EQ(animation.getAction(), 0);
    EXPECT_EQ(framesOver(2), (std::vector<int>{1, 2}));
    animation.setAction(7, false);
    EXPECT_FALSE(animation.isLooping());
    EXPECT_EQ(animation.getAction(), 0);
}

TEST_F(AnimationTest, SetFrameOutsideTheActionGivesFrameZero) {
    animation.setAction(0);
    struct Case {
        int asked, expected;
    } cases[] = {{-1, 0}, {2, 2}, {3, 0}};
    for (const Case& c : cases) {
        animation.setFrame(c.asked);
        EXPECT_EQ(animation.getFrame(), c.expected) << "setFrame(" << c.asked << ")";
    }
}

TEST_F(AnimationTest, DirectionOneAloneDrawsMirrored) {
    animation.setAction(0);
    BITMAP* target = create_bitmap(4, 6);
    int white = makecol(255, 255, 255);
    for (int direction : {0, 1, 2, -1}) {
        clear_to_color(target, 0);
        animation.setDirection(direction);
        animation.draw(target, 0, 0);
        EXPECT_EQ(getpixel(target, 0, 2) == white, direction != 1) << "direction " << direction;
        EXPECT_EQ(getpixel(target, 3, 2) == white, direction == 1) << "direction " << direction;
    }
    destroy_bitmap(target);
}

TEST_F(AnimationTest, DescriptionsThatGiveNothingDrawNothing) {
    for (std::string text : {"0\n", "", "two actions\n", "<absent>"}) {
        Animation empty;
        std::string path =
            text == "<absent>" ? folder.getPath() + "/absent.dat" : folder.writeFile("e.dat", text);
        EXPECT_EQ(printedBy([&] { empty.load(path.c_str()); }), "") << text;
        empty.setAction(0);
        empty.nextFrame();
        EXPECT_FALSE(empty.hasAction(0)) << text;
        EXPECT_FALSE(drawsAnything(empty)) << text;
        EXPECT_EQ(empty.getFrameWidth(), 0) << text;
    }
}

TEST_F(AnimationTest, BadActionBlocksEndLoadingWithAMessageAndKeepEarlierActions) {
    std::string wide = folder.writeStrip("wide.bmp", 4, 6, 21);
    std::string absent = folder.getPath() + "/absent.bmp";
    struct Case {
        std::string secondBlock;
        std::string message;
    } cases[] = {
        {actionBlock(3, 0, 0, wide, 21), "gives 21 frames for action 3"},
        {"3 0 0 " + wide + " -1\n", "gives -1 frames for action 3"},
        {actionBlock(3, 0, 0, absent, 2), "failed to load bitmap: " + absent},
    };
    for (const Case& c : cases) {
        std::string config = folder.writeFile(
            "bad.dat", "3\n" + actionBlock(0, 0, 1, wide, 2) + c.secondBlock + actionBlock(5, 0, 1, wide, 1));
        Animation partial;
        std::string printed = printedBy([&] { partial.load(config.c_str()); });
        EXPECT_NE(printed.find(c.message), std::string::npos) << printed;
        if (c.message.rfind("failed", 0) != 0) {
            EXPECT_NE(printed.find(config), std::string::npos) << "names the file: " << printed;
        }
        EXPECT_TRUE(partial.hasAction(0)) << c.message;
        EXPECT_FALSE(partial.hasAction(3)) << c.message;
        EXPECT_FALSE(partial.hasAction(5)) << c.message << ": loading stopped";
    }
}

TEST_F(AnimationTest, FrameOutsideItsStripIsLeftEmptyWithAMessage) {
    std::string config =
        folder.writeFile("outside.dat", "1\n0 0 1 " + walk + " 3\n0 0 4 6\n-4 0 0 6\n12 0 16 6\n");
    Animation partial;
    EXPECT_NE(
        printedBy([&] { partial.load(config.c_str()); }).find("failed to create sub bitmap for " + walk),
        std::string::npos);
    partial.setAction(0);
    partial.nextFrame();
    EXPECT_EQ(partial.getFrame(), 1);
    EXPECT_EQ(partial.getFrameWidth(), 0) << "the empty slot has no size";
    EXPECT_FALSE(drawsAnything(partial));
}

}  // namespace

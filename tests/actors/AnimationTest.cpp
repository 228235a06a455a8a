#include "actors/Animation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/TestFolder.h"

using Grevan::Animation;

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
    // A role with a walking action 0 (3 frames, delay 2, looping) and a dying action 3
    // (2 frames, delay 0, not looping).
    void loadWalkAndDie() {
        std::string walk = folder.writeStrip("walk.bmp", 4, 6, 3);
        std::string dieStrip = folder.writeStrip("die.bmp", 8, 3, 2);
        animation.load(folder
                           .writeFile("config.dat", "2\n" + actionBlock(0, 2, 1, walk, 3) +
                                                        actionBlock(3, 0, 0, dieStrip, 2, 8, 3))
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

    TestFolder folder;
    Animation animation;
};

TEST_F(AnimationTest, EachFrameShowsForDelayPlusOneTicksAndLoops) {
    loadWalkAndDie();
    animation.setAction(0);
    EXPECT_EQ(animation.getFrame(), 0);
    EXPECT_EQ(framesOver(10), (std::vector<int>{1, 1, 1, 2, 2, 2, 0, 0, 0, 1}));
}

TEST_F(AnimationTest, NonLoopingActionStaysOnItsLastFrame) {
    loadWalkAndDie();
    animation.setAction(3);
    EXPECT_EQ(framesOver(5), (std::vector<int>{1, 1, 1, 1, 1}));
    // The loop override turns the walking action into a one-shot, and the reverse.
    animation.setAction(0, false);
    EXPECT_EQ(framesOver(9).back(), 2);
    animation.setAction(3, true);
    EXPECT_EQ(framesOver(3), (std::vector<int>{1, 0, 1}));
}

TEST_F(AnimationTest, UnknownActionKeepsActionFrameAndCountdownButLoopOverrideApplies) {
    loadWalkAndDie();
    animation.setAction(0);
    framesOver(2);  // frame 1, one tick of its delay spent
    animation.setAction(7);
    EXPECT_EQ(animation.getAction(), 0);
    EXPECT_EQ(animation.getFrame(), 1);
    EXPECT_EQ(framesOver(2), (std::vector<int>{1, 2}));
    animation.setAction(7, false);
    EXPECT_FALSE(animation.isLooping());
    EXPECT_EQ(animation.getAction(), 0);
}

TEST_F(AnimationTest, SetFrameOutsideTheActionGivesFrameZero) {
    loadWalkAndDie();
    animation.setAction(0);
    struct Case {
        int asked, expected;
    } cases[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 2}, {3, 0}, {100, 0}};
    for (const Case& c : cases) {
        animation.setFrame(c.asked);
        EXPECT_EQ(animation.getFrame(), c.expected) << "setFrame(" << c.asked << ")";
    }
}

TEST_F(AnimationTest, FrameSizeFollowsTheCurrentAction) {
    loadWalkAndDie();
    EXPECT_EQ(animation.getFrameWidth(), 0) << "no action set yet";
    animation.setAction(0);
    EXPECT_EQ(animation.getFrameWidth(), 4);
    EXPECT_EQ(animation.getFrameHeight(), 6);
    animation.setAction(3);
    EXPECT_EQ(animation.getFrameWidth(), 8);
    EXPECT_EQ(animation.getFrameHeight(), 3);
}

TEST_F(AnimationTest, DirectionOneAloneDrawsMirrored) {
    loadWalkAndDie();
    animation.setAction(0);
    BITMAP* target = create_bitmap(4, 6);
    int white = makecol(255, 255, 255);
    struct Case {
        int direction;
        bool mirrored;
    } cases[] = {{0, false}, {1, true}, {2, false}, {-1, false}};
    for (const Case& c : cases) {
        clear_to_color(target, makecol(0, 0, 0));
        animation.setDirection(c.direction);
        animation.draw(target, 0, 0);
        EXPECT_EQ(getpixel(target, 0, 2) == white, !c.mirrored) << "direction " << c.direction;
        EXPECT_EQ(getpixel(target, 3, 2) == white, c.mirrored) << "direction " << c.direction;
    }
    destroy_bitmap(target);
}

TEST_F(AnimationTest, DescriptionsThatGiveNothingDrawNothing) {
    std::string strip = folder.writeStrip("walk.bmp", 4, 6, 3);
    struct Case {
        const char* what;
        std::string text;
    } cases[] = {
        {"no actions", "0\n"},
        {"empty file", ""},
        {"not numbers", "two actions\n"},
    };
    BITMAP* target = create_bitmap(8, 8);
    for (const Case& c : cases) {
        Animation empty;
        empty.load(folder.writeFile("config.dat", c.text).c_str());
        empty.setAction(0);
        empty.nextFrame();
        clear_to_color(target, 0);
        empty.draw(target, 0, 0);
        EXPECT_FALSE(empty.hasAction(0)) << c.what;
        EXPECT_EQ(getpixel(target, 1, 1), 0) << c.what;
        EXPECT_EQ(empty.getFrameWidth(), 0) << c.what;
    }
    Animation missing;
    testing::internal::CaptureStdout();
    missing.load((folder.getPath() + "/absent.dat").c_str());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "an unopenable file is ignored silently";
    EXPECT_FALSE(missing.hasAction(0));
    destroy_bitmap(target);
}

TEST_F(AnimationTest, BadActionBlocksEndLoadingWithAMessageAndKeepEarlierActions) {
    std::string walk = folder.writeStrip("walk.bmp", 4, 6, 21);
    std::string absent = folder.getPath() + "/absent.bmp";
    struct Case {
        const char* what;
        std::string secondBlock;
        std::string message;
    } cases[] = {
        {"21 frames", actionBlock(3, 0, 0, walk, 21), "gives 21 frames for action 3"},
        {"negative frame count", "3 0 0 " + walk + " -1\n", "gives -1 frames for action 3"},
        {"missing strip", actionBlock(3, 0, 0, absent, 2), "failed to load bitmap: " + absent},
    };
    for (const Case& c : cases) {
        std::string config =
            folder.writeFile("config.dat", "3\n" + actionBlock(0, 0, 1, walk, 2) + c.secondBlock +
                                               actionBlock(5, 0, 1, walk, 1));
        Animation partial;
        testing::internal::CaptureStdout();
        partial.load(config.c_str());
        std::string printed = testing::internal::GetCapturedStdout();
        EXPECT_NE(printed.find(c.message), std::string::npos) << c.what << ": " << printed;
        if (c.message.rfind("failed", 0) != 0) {
            EXPECT_NE(printed.find(config), std::string::npos) << c.what << " names the file: " << printed;
        }
        EXPECT_TRUE(partial.hasAction(0)) << c.what;
        EXPECT_FALSE(partial.hasAction(3)) << c.what;
        EXPECT_FALSE(partial.hasAction(5)) << c.what << ": loading stopped";
    }
}

TEST_F(AnimationTest, FrameOutsideItsStripIsLeftEmptyWithAMessage) {
    std::string walk = folder.writeStrip("walk.bmp", 4, 6, 2);
    std::string config =
        folder.writeFile("config.dat", "1\n0 0 1 " + walk + " 3\n0 0 4 6\n-4 0 0 6\n8 0 12 6\n");
    testing::internal::CaptureStdout();
    animation.load(config.c_str());
    std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_NE(printed.find("failed to create sub bitmap for " + walk), std::string::npos) << printed;
    animation.setAction(0);
    EXPECT_EQ(animation.getFrameWidth(), 4);
    animation.nextFrame();
    EXPECT_EQ(animation.getFrame(), 1);
    EXPECT_EQ(animation.getFrameWidth(), 0) << "the empty slot has no size";
    BITMAP* target = create_bitmap(8, 8);
    clear_to_color(target, 0);
    animation.draw(target, 0, 0);
    EXPECT_EQ(getpixel(target, 1, 1), 0);
    destroy_bitmap(target);
}

}  // namespace

#include "actors/Animation.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/TestFolder.h"
#include "support/TestSupport.h"

using Grevan::Animation;

namespace {

// An action block of a role description: id, delay, loop, strip, and `frames` frames of 4 x 6
// side by side.
std::string actionBlock(int id, int delay, int loop, const std::string& strip, int frames) {
    std::string block = std::to_string(id) + " " + std::to_string(delay) + " " + std::to_string(loop) + " " +
                        strip + " " + std::to_string(frames) + "\n";
    for (int f = 0; f < frames; f++) {
        block += std::to_string(f * 4) + " 0 " + std::to_string(f * 4 + 4) + " 6\n";
    }
    return block;
}

class AnimationTest : public HeadlessGame {
  protected:
    // Loads a walking action 0 (3 frames, delay 2, looping) and a dying action 3 (2 frames,
    // delay 0, not looping).
    void SetUp() override {
        strip = folder.writeStrip("strip.bmp", 4, 6, 21);
        load(animation, "2\n" + actionBlock(0, 2, 1, strip, 3) + actionBlock(3, 0, 0, strip, 2));
    }

    // Loads a description into the animation; returns what loading printed.
    std::string load(Animation& a, const std::string& text) {
        std::string path = folder.writeFile("config.dat", text);
        return GrevanTest::printedBy([&] { a.load(path.c_str()); });
    }

    // Draws the animation facing the direction into the cleared buffer.
    BITMAP* drawn(Animation& a, int direction) {
        a.setDirection(direction);
        clear_to_color(buffer, 0);
        a.draw(buffer, 0, 0);
        return buffer;
    }

    TestFolder folder;
    std::string strip;
    Animation animation;
};

TEST_F(AnimationTest, EachFrameShowsForDelayPlusOneTicksAndTheLoopFlagOrItsOverrideDecidesTheEnd) {
    EXPECT_EQ(animation.getFrameWidth(), 0) << "no action set yet";
    // The action set, the loop override (-1 for none), the frames after each tick; an unknown action
    // (7) keeps action, frame and countdown, but the override applies.
    const std::tuple<int, int, std::string> steps[] = {
        {0, -1, "1112220001"}, {3, -1, "111"}, {0, 0, "111222222"}, {3, 1, "101"},
        {0, -1, "11"},         {7, -1, "12"},  {7, 0, "2222"}};
    for (const auto& [action, loops, frames] : steps) {
        loops < 0 ? animation.setAction(action) : animation.setAction(action, loops == 1);
        std::string seen;
        while (seen.size() < frames.size()) {
            animation.nextFrame();
            seen += std::to_string(animation.getFrame());
        }
        EXPECT_EQ(seen, frames) << "action " << action;
    }
    EXPECT_EQ(animation.getAction(), 0);
    EXPECT_EQ(animation.getFrameWidth(), 4);
}

TEST_F(AnimationTest, SetFrameOutsideTheActionGivesFrameZeroAndDirectionOneAloneMirrors) {
    animation.setAction(0);
    for (int asked : {-1, 2, 3}) {
        animation.setFrame(asked);
        EXPECT_EQ(animation.getFrame(), asked == 2 ? 2 : 0) << "setFrame(" << asked << ")";
    }
    const int white = makecol(255, 255, 255);  // the strip marks each frame's left column
    for (int direction : {0, 1, 2, -1}) {
        EXPECT_EQ(getpixel(drawn(animation, direction), 0, 2) == white, direction != 1) << direction;
        EXPECT_EQ(getpixel(drawn(animation, direction), 3, 2) == white, direction == 1) << direction;
    }
}

TEST_F(AnimationTest, BadActionBlocksEndLoadingWithAMessageAndKeepEarlierActions) {
    std::string absent = folder.getPath() + "/absent.bmp";
    std::string config = folder.getPath() + "/config.dat";
    // The bad block and the message it prints.
    const std::pair<std::string, std::string> cases[] = {
        {"3 0 0 " + strip + " -1\n", config + " gives -1 frames for action 3"},
        {actionBlock(3, -1, 1, strip, 2), config + " gives a frame delay of -1 for action 3"},
        {"3 -2147483648 1 " + strip + " 1 0 0 4 6\n",
         config + " gives a frame delay of -2147483648 for action 3"},
        {actionBlock(3, 0, 0, absent, 2), "failed to load bitmap: " + absent},
        // Read as UTF-8, this name once sent Allegro's message formatting into an endless loop; as
        // plain 8-bit text its bytes above 127 print as others.
        {actionBlock(3, 0, 0, "\xff\xb9\xb9\xb9\xb9\xb9\xb9\xb9", 2), "failed to load bitmap: y^^^^^^^"},
    };
    for (const auto& [block, message] : cases) {
        Animation partial;
        std::string printed =
            load(partial, "3\n" + actionBlock(0, 0, 1, strip, 2) + block + actionBlock(5, 0, 1, strip, 1));
        EXPECT_NE(printed.find(message), std::string::npos) << printed;
        EXPECT_TRUE(partial.hasAction(0)) << message;
        EXPECT_FALSE(partial.hasAction(3)) << message;
        EXPECT_FALSE(partial.hasAction(5)) << message << ": loading stopped";
    }
}

TEST_F(AnimationTest, FrameOutsideItsStripIsLeftEmptyWithAMessage) {
    Animation partial;
    std::string printed = load(partial, "1\n0 0 1 " + strip + " 3\n0 0 4 6\n-4 0 0 6\n84 0 88 6\n");
    EXPECT_NE(printed.find("failed to create sub bitmap for " + strip), std::string::npos) << printed;
    partial.setAction(0);
    partial.nextFrame();
    EXPECT_EQ(partial.getFrame(), 1);
    EXPECT_EQ(partial.getFrameWidth(), 0) << "the empty slot has no size";
    EXPECT_EQ(GrevanTest::pixelsOf(drawn(partial, 0), 0), 800 * 600);
}

}  // namespace

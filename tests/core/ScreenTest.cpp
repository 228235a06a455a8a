#include "core/Screen.h"

#include <gtest/gtest.h>

#include "core/Game.h"

using Grevan::Game;
using Grevan::Screen;
using Grevan::StartMode;

namespace {

const int kWhite = 0xffffff;

// A screen on memory pages, so fades can be watched without a window.
class ScreenTest : public testing::Test {
  protected:
    void SetUp() override {
        screen.adoptPages(create_bitmap(16, 8), create_bitmap(16, 8), create_bitmap(16, 8));
        clear_to_color(screen.getCurrentPage(), 0);
    }

    // Draws a white frame into the buffer and flips it, as the main loop does.
    void frame() {
        clear_to_color(screen.getBufferPage(), kWhite);
        screen.flip();
    }

    int shown() { return getpixel(screen.getCurrentPage(), 3, 3); }

    Game game{StartMode::HEADLESS};
    Screen screen;
};

}  // namespace

TEST_F(ScreenTest, NothingReachesTheScreenBeforeAFadeIn) {
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_DARK);
    for (int i = 0; i < 10; ++i) {
        frame();
    }
    EXPECT_EQ(shown(), 0);
}

TEST_F(ScreenTest, FadeInTakesFiftyTwoFramesFromBlackToThePicture) {
    screen.fadeIn();
    frame();
    EXPECT_EQ(shown(), 0) << "the first frame is covered at alpha 255";
    for (int i = 1; i < 51; ++i) {
        frame();
        EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_IN) << "frame " << i;
    }
    int nearlyThere = shown() & 0xff;
    EXPECT_GT(nearlyThere, 200);
    EXPECT_LT(nearlyThere, 255);
    frame();  // the 52nd frame is drawn at alpha 0
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_SHOWN);
    EXPECT_EQ(shown(), kWhite);
    frame();
    EXPECT_EQ(shown(), kWhite);
}

TEST_F(ScreenTest, FadeOutFreezesTheDarkFrameUntilTheNextFadeIn) {
    screen.fadeIn();
    for (int i = 0; i < 52; ++i) {
        frame();
    }
    screen.fadeOut();
    frame();
    EXPECT_EQ(shown(), kWhite) << "the first fade-out frame is drawn at alpha 0";
    for (int i = 1; i < 52; ++i) {
        EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_OUT) << "frame " << i;
        frame();
    }
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_DARK);
    EXPECT_EQ(shown(), 0) << "the last frame was covered at alpha 255";
    for (int i = 0; i < 5; ++i) {
        frame();
    }
    EXPECT_EQ(shown(), 0) << "dark mode copies nothing";

    screen.fadeIn();
    EXPECT_EQ(screen.getFadeAlpha(), 255);
    for (int i = 0; i < 52; ++i) {
        frame();
    }
    EXPECT_EQ(shown(), kWhite);
}

TEST_F(ScreenTest, CurrentPageIsTheFirstPage) {
    BITMAP* first = create_bitmap(4, 4);
    screen.adoptPages(first, create_bitmap(4, 4), create_bitmap(4, 4));
    EXPECT_EQ(screen.getCurrentPage(), first);
}

TEST(ScreenWithoutDisplay, SettingAVideoModeFailsWithAMessage) {
    Game game(StartMode::HEADLESS);
    Screen screen;
    testing::internal::CaptureStdout();
    EXPECT_FALSE(screen.setVideoMode(800, 600, 32));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Failed to set video mode 800*600*32\n");
    screen.flip();  // no pages: nothing to do, and no crash
}

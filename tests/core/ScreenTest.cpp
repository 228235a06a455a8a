#include "core/Screen.h"

#include <gtest/gtest.h>

#include "core/Game.h"

using Grevan::Screen;

namespace {

const int kWhite = 0xffffff;

// A screen on memory pages, so fades can be watched without a window.
class ScreenTest : public testing::Test {
  protected:
    void SetUp() override {
        first = create_bitmap(16, 8);
        screen.adoptPages(first, create_bitmap(16, 8), create_bitmap(16, 8));
        clear_to_color(first, 0);
    }

    // Draws white frames into the buffer and flips each, as the main loop does.
    void frames(int count) {
        for (int i = 0; i < count; ++i) {
            clear_to_color(screen.getBufferPage(), kWhite);
            screen.flip();
        }
    }

    int shown() { return getpixel(screen.getCurrentPage(), 3, 3); }

    Grevan::Game game{Grevan::StartMode::HEADLESS};
    Screen screen;
    BITMAP* first = nullptr;
};

TEST_F(ScreenTest, NothingShowsBeforeAFadeInFadesTakeFiftyTwoFramesAndAFadeOutFreezesTheDarkFrame) {
    EXPECT_EQ(screen.getCurrentPage(), first);
    frames(10);
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_DARK);
    EXPECT_EQ(shown(), 0);
    screen.fadeIn();
    frames(1);
    EXPECT_EQ(shown(), 0) << "the first frame is covered at alpha 255";
    frames(50);
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_IN);
    EXPECT_GT(shown() & 0xff, 200);
    EXPECT_LT(shown() & 0xff, 255);
    frames(1);  // the 52nd frame is drawn at alpha 0
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_SHOWN);
    EXPECT_EQ(shown(), kWhite);
    screen.fadeOut();
    frames(1);
    EXPECT_EQ(shown(), kWhite) << "the first fade-out frame is drawn at alpha 0";
    frames(50);
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_OUT);
    frames(1);
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_DARK);
    EXPECT_EQ(shown(), 0) << "the last frame was covered at alpha 255";
    frames(5);
    EXPECT_EQ(shown(), 0) << "dark mode copies nothing";
    screen.fadeIn();
    frames(52);
    EXPECT_EQ(shown(), kWhite);
}

}  // namespace

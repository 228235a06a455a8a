#include "core/Screen.h"

#include <gtest/gtest.h>

#include "core/Game.h"
#include "support/TestSupport.h"

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
    // The next test follows a fade-out's alpha frame by frame.
    screen.fadeOut();
    frames(51);
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_OUT);
    frames(1);
    EXPECT_EQ(screen.getFadeMode(), Grevan::FADE_DARK);
    frames(5);
    EXPECT_EQ(shown(), 0) << "dark mode copies nothing";
    screen.fadeIn();
    frames(52);
    EXPECT_EQ(shown(), kWhite);
}

TEST_F(ScreenTest, AFadeDarkensEveryPixelExactlyAsATranslucentBlackOverlayWould) {
    BITMAP* colours = create_bitmap(16, 8);
    BITMAP* expected = create_bitmap(16, 8);
    BITMAP* black = create_bitmap(16, 8);
    clear_to_color(black, 0);
    srand(7);
    for (int y = 0; y < 8; y++) {
        for (int x = 0; x < 16; x++) {
            putpixel(colours, x, y, makecol(rand() % 256, rand() % 256, rand() % 256));
        }
    }
    putpixel(colours, 0, 0, kWhite);
    putpixel(colours, 1, 0, makecol(255, 0, 255));  // the mask colour is darkened like any other
    screen.fadeOut();
    for (int alpha = 0; alpha <= 255; alpha += Screen::kFadeStep) {
        blit(colours, expected, 0, 0, 0, 0, 16, 8);
        set_trans_blender(0, 0, 0, alpha);
        draw_trans_sprite(expected, black, 0, 0);
        blit(colours, screen.getBufferPage(), 0, 0, 0, 0, 16, 8);
        screen.flip();
        ASSERT_EQ(GrevanTest::differingPixels(screen.getCurrentPage(), expected), 0) << "alpha " << alpha;
    }
    destroy_bitmap(black);
    destroy_bitmap(expected);
    destroy_bitmap(colours);
}

}  // namespace

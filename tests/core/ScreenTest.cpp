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
    // Colours across the range; the mask colour among them is darkened like any other.
    auto colourAt = [](int x, int y) { return x + y ? makecol(x * 17, y * 36, x * y * 7 % 256) : 0xff00ff; };
    screen.fadeOut();
    for (int alpha = 0; alpha <= 255; alpha += Screen::kFadeStep) {
        for (int i = 0; i < 16 * 8; i++) {
            putpixel(screen.getBufferPage(), i % 16, i / 16, colourAt(i % 16, i / 16));
        }
        screen.flip();
        for (int i = 0; i < 16 * 8; i++) {
            ASSERT_EQ(getpixel(screen.getCurrentPage(), i % 16, i / 16),
                      GrevanTest::blendedOver(colourAt(i % 16, i / 16), 0, alpha))
                << i << " at alpha " << alpha;
        }
    }
}

}  // namespace

#include "core/Screen.h"

#include <gtest/gtest.h>

#include <tuple>

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
    // The fade started (if any), the white frames flipped after it, the fade mode then and the pixel
    // shown. A fade-in's first frame is covered at alpha 255, its 51st at 5 and its 52nd at 0, and a
    // fade-out's the other way round; dark mode copies nothing.
    const std::tuple<void (Screen::*)(), int, int, int> steps[] = {
        {nullptr, 10, Grevan::FADE_DARK, 0},
        {&Screen::fadeIn, 1, Grevan::FADE_IN, 0},
        {nullptr, 50, Grevan::FADE_IN, GrevanTest::blendedOver(kWhite, 0, 5)},
        {nullptr, 1, Grevan::FADE_SHOWN, kWhite},
        {&Screen::fadeOut, 51, Grevan::FADE_OUT, GrevanTest::blendedOver(kWhite, 0, 250)},
        {nullptr, 6, Grevan::FADE_DARK, 0},
        {&Screen::fadeIn, 52, Grevan::FADE_SHOWN, kWhite}};
    for (auto [fade, count, mode, pixel] : steps) {
        if (fade) {
            (screen.*fade)();
        }
        frames(count);
        EXPECT_EQ(std::make_pair(screen.getFadeMode(), shown()), std::make_pair(mode, pixel)) << count;
    }
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

#include "ui/Dialog.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::Dialog;

namespace {

// A bubble under the headless game's 800 x 600 camera.
class SpeechBubble : public HeadlessGame {
  protected:
    // Shows the bubble and lets `frames` frames of its time pass.
    void showFor(int frames) {
        bubble.show();
        for (int i = 0; i < frames; i++) {
            bubble.move();
        }
    }

    Dialog bubble;
};

TEST_F(SpeechBubble, LinesAndSizesFollowTheLineFeedsAndTheWidestLine) {
    using Lines = std::vector<std::string>;
    // A line feed right after another one starts the next line instead of ending one.
    const std::tuple<std::string, Lines, std::string> cases[] = {
        {"Hello", {"Hello"}, "Hello"},
        {"Hi\nthere!", {"Hi", "there!"}, "there!"},
        {"a\n\nb", {"a", "\nb"}, "\nb"},
        {"\nb", {"", "b"}, "b"},
        {"", {""}, ""},
        {"ab\n", {"ab"}, "ab"}};  // the text, its lines, the widest
    for (const auto& [text, lines, widest] : cases) {
        bubble.setPosition(100, 300).setText(text);
        EXPECT_EQ(bubble.getLines(), lines) << text;
        EXPECT_EQ(bubble.getWidth(), 36 + text_length(font, widest.c_str())) << text;
        EXPECT_EQ(bubble.getHeight(), static_cast<int>(lines.size()) * (text_height(font) + 8) + 28) << text;
    }
}

// The bubble stands on the point, opening to the left where it would leave the view on the right;
// it is drawn half transparent with the tail's tip on the point, and its text is white whatever
// colour was asked for.
TEST_F(SpeechBubble, StandsOnThePointOpensLeftAtTheViewsRightEdgeAndIsDrawnHalfTransparent) {
    const int green = makecol(0, 250, 0);
    const int blended = GrevanTest::blendedOver(green, makecol(0, 0, 0));
    const int white = GrevanTest::blendedOver(green, makecol(255, 255, 255));
    const std::tuple<int, int, bool> cases[] = {
        {200, 900, false}, {200, 990, true}, {0, 800 - 76, false}, {0, 800 - 75, true}};
    for (auto [cameraX, pointX, opensLeft] : cases) {
        map().setClientX(cameraX);
        bubble.setPosition(pointX, 300).setText("Hello").setColor(makecol(255, 0, 0)).show();
        ASSERT_EQ(bubble.getWidth(), 76);
        EXPECT_EQ(bubble.getY(), 300 - bubble.getHeight());
        clear_to_color(buffer, green);
        bubble.draw(buffer, cameraX, 0);
        const int left = (opensLeft ? pointX - 76 : pointX) - cameraX, right = left + 75;
        const int top = bubble.getY(), bottom = 299;
        SCOPED_TRACE(std::to_string(pointX) + " from " + std::to_string(cameraX));
        // The tip is the bottom corner at the point; the other bottom corner and the margin are mask.
        EXPECT_EQ(getpixel(buffer, opensLeft ? right : left, bottom), blended);
        EXPECT_EQ(getpixel(buffer, opensLeft ? left : right, bottom), green);
        EXPECT_EQ(getpixel(buffer, left, top), green);
        EXPECT_EQ(getpixel(buffer, left + 10, top + 10), blended) << "the box";
        EXPECT_GT(GrevanTest::pixelsOf(buffer, white, left, top, right, bottom), 0);
        EXPECT_EQ(GrevanTest::pixelsOf(buffer, makecol(255, 0, 0)), 0);
    }
    // Every setText lifts the bubble by its height again.
    bubble.setText("Hello");
    EXPECT_EQ(bubble.getY(), 300 - 2 * bubble.getHeight());
}

TEST_F(SpeechBubble, TimesOutAfter300FramesOrTheDelayGivenAndHideCutsItShortOnlyAfter30) {
    bubble.setPosition(100, 300).setText("Hello");
    for (int delay : {300, 5}) {
        showFor(delay);
        EXPECT_TRUE(bubble.isVisible()) << "shown for the whole " << delay << " frames";
        bubble.move();
        EXPECT_FALSE(bubble.isVisible());
        bubble.setDelay(5);
    }
    bubble.setDelay(300);
    const std::pair<int, bool> cases[] = {{0, true}, {29, true}, {30, false}};
    for (auto [framesShown, visibleAfterHide] : cases) {
        showFor(framesShown);
        bubble.hide();
        EXPECT_EQ(bubble.isVisible(), visibleAfterHide) << framesShown;
    }
}

// A crash or a sanitizer's report is the failure.
TEST_F(SpeechBubble, DrawingWhileAnotherThreadSetsTextNeverTouchesAFreedBitmap) {
    bubble.setPosition(100, 300).setText("Hello").show();
    std::atomic<bool> drawn{false};
    std::atomic<bool> done{false};
    std::thread script([this, &drawn, &done] {
        // Begins only once the main thread draws, which a busy machine may otherwise not let
        // happen before all the texts are set.
        while (!drawn) {
            std::this_thread::yield();
        }
        for (int i = 0; i < 2000; i++) {
            bubble.hide().setPosition(100 + i % 50, 300).setText(i % 2 ? "Hello" : "Hi\nthere").show();
        }
        done = true;
    });
    while (!done) {
        bubble.move();
        bubble.draw(buffer, 0, 0);
        drawn = true;
    }
    script.join();
}

}  // namespace

#include <gtest/gtest.h>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::Object;

namespace {

// What the frame must show at a screen point: the picture of the last registered object whose
// opaque pixels cover the point, or the background colour where none does.
int expectedPixel(const std::vector<Object*>& objects, int background, int worldX, int worldY) {
    for (auto o = objects.rbegin(); o != objects.rend(); ++o) {
        BITMAP* image = (*o)->getImage();
        int x = worldX - (*o)->getX();
        int y = worldY - (*o)->getY();
        if (image && (*o)->isVisible() && x >= 0 && y >= 0 && x < image->w && y < image->h &&
            getpixel(image, x, y) != makecol(255, 0, 255)) {
            return getpixel(image, x, y);
        }
    }
    return background;
}

using LevelRendering = HeadlessGame;

TEST_F(LevelRendering, FrameShowsBackgroundThenPiecesInOrderAndNeverMagenta) {
    EXPECT_EQ(GrevanTest::printedBy([&] { game->loadMap("maps/meadow.map"); }), "") << "every picture loads";
    map().moveClientTo(1000, 300);
    ASSERT_EQ(map().getClientX(), 600);
    runFrames(1);
    save_bitmap(GrevanTest::buildOutputPath("meadow_frame.bmp").c_str(), buffer, nullptr);

    const int background = map().getBackgroundColor();
    int backgroundPixels = 0;
    int mismatches = 0;
    EXPECT_EQ(GrevanTest::pixelsOf(buffer, makecol(255, 0, 255)), 0);
    for (int y = 8; y < 600; ++y) {  // below the "FPS" line
        for (int x = 0; x < 800; ++x) {
            int expected = expectedPixel(objects().getObjects(), background, x + 600, y);
            backgroundPixels += expected == background ? 1 : 0;
            if (getpixel(buffer, x, y) != expected && ++mismatches <= 5) {
                ADD_FAILURE() << "pixel " << x << ", " << y << " is " << std::hex << getpixel(buffer, x, y)
                              << " instead of " << expected;
            }
        }
    }
    EXPECT_EQ(mismatches, 0);
    // Both must be well represented for the comparison to mean anything.
    EXPECT_GT(backgroundPixels, 800 * 600 / 10);
    EXPECT_LT(backgroundPixels, 800 * 600 * 3 / 4);
}

}  // namespace

#include <gtest/gtest.h>

#include "support/WorldTestSupport.h"

using Grevan::Object;
using GrevanTest::HeadlessGameTest;

namespace {

const int kScreenWidth = 800;
const int kScreenHeight = 600;
const int kStatusLineHeight = 8;  // the built-in font's height; the "FPS" line covers it

// What the frame must show at a screen point: the picture of the last registered object whose
// opaque pixels cover the point, or the background colour where none does.
int expectedPixel(const std::vector<Object*>& objects, int background, int screenX, int screenY, int cameraX,
                  int cameraY) {
    const int transparent = makecol(255, 0, 255);
    for (auto o = objects.rbegin(); o != objects.rend(); ++o) {
        BITMAP* image = (*o)->getImage();
        if (!image || !(*o)->isVisible()) {
            continue;
        }
        int x = screenX + cameraX - (*o)->getX();
        int y = screenY + cameraY - (*o)->getY();
        if (x < 0 || y < 0 || x >= image->w || y >= image->h) {
            continue;
        }
        int pixel = getpixel(image, x, y);
        if (pixel != transparent) {
            return pixel;
        }
    }
    return background;
}

}  // namespace

class LevelRendering : public HeadlessGameTest {};

TEST_F(LevelRendering, FrameShowsBackgroundThenPiecesInOrderAndNeverMagenta) {
    testing::internal::CaptureStdout();
    game.loadMap("maps/meadow.map");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "every piece's picture loads";
    ASSERT_GT(objects().getObjectCount(), 0);
    for (Object* o : objects().getObjects()) {
        ASSERT_NE(o->getImage(), nullptr);
    }

    map().setClientWidth(kScreenWidth);
    map().setClientHeight(kScreenHeight);
    map().moveClientTo(1000, 300);
    ASSERT_EQ(map().getClientX(), 600);
    ASSERT_EQ(map().getClientY(), 0);

    BITMAP* frame = create_bitmap(kScreenWidth, kScreenHeight);
    // The aiming sight is drawn over the level; this frame shows the level alone.
    game.getAimSystem().setX(-100);
    game.getAimSystem().setY(-100);
    game.playFrame(frame, 0);
    save_bitmap(GrevanTest::buildOutputPath("meadow_frame.bmp").c_str(), frame, nullptr);

    const int magenta = makecol(255, 0, 255);
    const int background = map().getBackgroundColor();
    int backgroundPixels = 0;
    int piecePixels = 0;
    int mismatches = 0;
    for (int y = kStatusLineHeight; y < kScreenHeight; ++y) {
        for (int x = 0; x < kScreenWidth; ++x) {
            int shown = getpixel(frame, x, y);
            EXPECT_NE(shown, magenta) << "at " << x << ", " << y;
            int expected = expectedPixel(objects().getObjects(), background, x, y, 600, 0);
            (expected == background ? backgroundPixels : piecePixels) += 1;
            if (shown != expected && ++mismatches <= 5) {
                ADD_FAILURE() << "pixel " << x << ", " << y << " is " << std::hex << shown << " instead of "
                              << expected;
            }
        }
    }
    EXPECT_EQ(mismatches, 0);
    // Both must be well represented for the comparison to mean anything.
    EXPECT_GT(backgroundPixels, kScreenWidth * kScreenHeight / 10);
    EXPECT_GT(piecePixels, kScreenWidth * kScreenHeight / 4);
    destroy_bitmap(frame);
}

#include <gtest/gtest.h>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using GrevanTest::makeBody;

namespace {

// The meadow level, run through whole frames of the game.
class WorldScenario : public HeadlessGame {
  protected:
    void SetUp() override { game->loadMap("maps/meadow.map"); }
};

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

TEST_F(WorldScenario, FrameShowsBackgroundThenPiecesInOrderAndNeverMagenta) {
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

TEST_F(WorldScenario, RidersFollowASinkingLiftAndLandOnTheGroundWhenItSlidesAway) {
    // A lift is a body that is neither free nor on a board: no gravity, no friction. It works in
    // the open sky west of the low platform, and slides off over it.
    RealBody* lift = makeBody(300, 200, 100, 12);
    lift->setFree(false);
    lift->setVelocity(Vector(0, 1));
    objects().addObject(lift);
    RealBody* riders[] = {makeBody(320, 150, 20, 20), makeBody(360, 120, 16, 16)};
    for (RealBody* rider : riders) {
        objects().addObject(rider);
    }
    // Each time the lift sinks away it lets go of its riders; they fall after it and land again.
    int landings[2] = {0, 0};
    for (int i = 0; i < 100; ++i) {
        runFrames(1);
        for (int r = 0; r < 2; ++r) {
            landings[r] += riders[r]->getBoard() == lift ? 1 : 0;
            int gap = lift->getY() - (riders[r]->getY() + riders[r]->getHeight());
            if (i >= 50) {
                EXPECT_GE(gap, -1) << "rider " << r << " sank into the lift in frame " << i;
                EXPECT_LE(gap, 25) << "rider " << r << " was left behind in frame " << i;
            }
        }
    }
    EXPECT_GE(lift->getY(), 300);
    EXPECT_GE(landings[0], 3);
    EXPECT_GE(landings[1], 3);

    lift->setVelocity(Vector(3, 0));
    runFrames(120);
    EXPECT_GT(lift->getX(), 600);
    EXPECT_TRUE(lift->getRiders().empty());
    for (RealBody* rider : riders) {
        // Carried straight down, to rest one pixel into the ground, with the ground's friction.
        EXPECT_EQ(rider->getX(), rider == riders[0] ? 320 : 360);
        EXPECT_EQ(rider->getY(), 520 - rider->getHeight() + 1);
        EXPECT_EQ(rider->getBoard(), blocks().getObjectByPosition(rider->getX(), 530));
        EXPECT_FLOAT_EQ(rider->getSlidingFriction(), 0.12f);
    }
}

}  // namespace

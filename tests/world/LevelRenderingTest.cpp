#include <gtest/gtest.h>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

namespace {

using LevelRendering = HeadlessGame;

// The shipped meadow: every picture loads, their mask colour never shows, and the view holds both
// the sky and the pieces.
TEST_F(LevelRendering, TheShippedMeadowLoadsEveryPictureAndNeverShowsMagenta) {
    EXPECT_EQ(GrevanTest::printedBy([&] { game->loadMap("maps/meadow.map"); }), "");
    map().moveClientTo(1000, 300);
    runFrames(1);
    EXPECT_EQ(GrevanTest::pixelsOf(buffer, makecol(255, 0, 255)), 0);
    const int sky = GrevanTest::pixelsOf(buffer, map().getBackgroundColor());
    EXPECT_TRUE(sky > 800 * 600 / 10 && sky < 800 * 600 * 3 / 4) << sky;
}

}  // namespace

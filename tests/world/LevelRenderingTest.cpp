#include <gtest/gtest.h>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::Object;

namespace {

using LevelRendering = HeadlessGame;

TEST_F(LevelRendering, FrameShowsBackgroundThenPiecesInOrderAndNeverMagenta) {
    EXPECT_EQ(GrevanTest::printedBy([&] { game->loadMap("maps/meadow.map"); }), "") << "every picture loads";
    map().moveClientTo(1000, 300);
    ASSERT_EQ(map().getClientX(), 600);
    runFrames(1);
    EXPECT_EQ(GrevanTest::pixelsOf(buffer, makecol(255, 0, 255)), 0);

    // What the frame must show: the background colour, then the opaque pixels of each visible
    // registered object's picture, later ones over earlier ones.
    const int background = map().getBackgroundColor();
    BITMAP* expected = create_bitmap(buffer->w, buffer->h);
    clear_to_color(expected, background);
    for (Object* o : objects().getObjects()) {
        if (o->getImage() && o->isVisible()) {
            draw_sprite(expected, o->getImage(), o->getX() - 600, o->getY());
        }
    }
    // The "FPS" line on top is no part of the world.
    rectfill(buffer, 0, 0, buffer->w - 1, 7, 0);
    rectfill(expected, 0, 0, buffer->w - 1, 7, 0);
    EXPECT_EQ(GrevanTest::differingPixels(buffer, expected), 0);
    // Both must be well represented for the comparison to mean anything.
    const int backgroundPixels = GrevanTest::pixelsOf(expected, background);
    EXPECT_GT(backgroundPixels, 800 * 600 / 10);
    EXPECT_LT(backgroundPixels, 800 * 600 * 3 / 4);
    destroy_bitmap(expected);
}

}  // namespace

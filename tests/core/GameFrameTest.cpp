#include <gtest/gtest.h>

#include "support/WorldTestSupport.h"

using GrevanTest::makeBlock;

class GameFrame : public GrevanTest::HeadlessGameTest {};

TEST_F(GameFrame, FrameMovesReapsAndReportsTheObjectCountOverTheWorld) {
    blocks().initialize(800, 600);
    map().setBackgroundColor(30, 60, 90);
    Grevan::Object* mover = makeBlock(100, 300, 10, 10);
    mover->setVelocity(Vector(2, 0));
    Grevan::Object* doomed = makeBlock(200, 300, 10, 10);
    doomed->die();
    objects().addObject(mover);
    objects().addObject(doomed);
    objects().addObject(makeBlock(300, 300, 10, 10));

    BITMAP* frame = create_bitmap(400, 300);
    // The aiming sight is drawn over the frame; this one is about the world, so it looks away.
    game.getAimSystem().setX(-100);
    game.getAimSystem().setY(-100);
    game.playFrame(frame, 17);
    EXPECT_EQ(mover->getX(), 102);
    EXPECT_EQ(objects().getObjectCount(), 2);

    // The status line is written over the background with the count after reaping.
    BITMAP* expected = create_bitmap(400, 300);
    clear_to_color(expected, makecol(30, 60, 90));
    textprintf_ex(expected, font, 20, 0, makecol(255, 255, 255), -1, "FPS: %d  Objects: %d", 17, 2);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 400; ++x) {
            ASSERT_EQ(getpixel(frame, x, y), getpixel(expected, x, y)) << x << ", " << y;
        }
    }
    destroy_bitmap(expected);
    destroy_bitmap(frame);
}

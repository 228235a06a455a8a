#include <gtest/gtest.h>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using GrevanTest::makeBlock;

namespace {

using GameFrame = HeadlessGame;

TEST_F(GameFrame, FrameMovesReapsAndWritesOnlyTheFpsLineWithoutAMainPlayer) {
    blocks().initialize(800, 600);
    map().setBackgroundColor(30, 60, 90);
    Grevan::Object* mover = makeBlock(100, 300, 10, 10);
    mover->setVelocity(Vector(2, 0));
    Grevan::Object* doomed = makeBlock(200, 300, 10, 10);
    doomed->die();
    for (Grevan::Object* o : {mover, doomed, makeBlock(300, 300, 10, 10)}) {
        objects().addObject(o);
    }
    game->playFrame(buffer, 17);
    EXPECT_EQ(mover->getX(), 102);
    EXPECT_EQ(objects().getObjectCount(), 2);

    // The status line is written over the background with the count after reaping.
    BITMAP* expected = create_bitmap(800, 10);
    clear_to_color(expected, makecol(30, 60, 90));
    textprintf_ex(expected, font, 20, 0, makecol(255, 255, 255), -1, "FPS: %d  Objects: %d", 17, 2);
    BITMAP* top = create_sub_bitmap(buffer, 0, 0, 800, 10);
    EXPECT_EQ(GrevanTest::differingPixels(top, expected), 0);
    destroy_bitmap(top);
    destroy_bitmap(expected);
}

}  // namespace

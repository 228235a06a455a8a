#include "core/FramePacer.h"

#include <gtest/gtest.h>

using Grevan::FramePacer;

namespace {

// Runs `frames` frames within the second that starts at `second`.
void runSecond(FramePacer& pacer, time_t second, int frames) {
    for (int i = 0; i < frames; ++i) {
        pacer.beginFrame(second);
    }
}

}  // namespace

TEST(FramePacer, AdjustsTheDelayByOneMillisecondEachSecond) {
    struct Case {
        int framesPerSecond;
        int delayAfterOneSecond;
    } cases[] = {{65, 9}, {66, 11}, {67, 11}, {0 + 1, 9}, {200, 11}};
    for (const Case& c : cases) {
        FramePacer pacer(100);
        runSecond(pacer, 100, c.framesPerSecond);
        EXPECT_EQ(pacer.getDelay(), 10) << "no change within the first second";
        EXPECT_EQ(pacer.getFramesLastSecond(), 0) << "nothing counted before the first second ends";
        pacer.beginFrame(101);
        EXPECT_EQ(pacer.getDelay(), c.delayAfterOneSecond) << c.framesPerSecond;
        EXPECT_EQ(pacer.getFramesLastSecond(), c.framesPerSecond);
    }
}

TEST(FramePacer, SlowMachineWalksTheDelayIntoNegativeValues) {
    FramePacer pacer(0);
    // The first frame opens second 0; each later second draws 30 frames in all.
    pacer.beginFrame(0);
    for (time_t second = 1; second <= 15; ++second) {
        runSecond(pacer, second, 30);
    }
    EXPECT_EQ(pacer.getDelay(), 10 - 15);
    EXPECT_EQ(pacer.getFramesLastSecond(), 30);
}

TEST(FramePacer, ASkippedSecondCountsAsOneAdjustment) {
    FramePacer pacer(0);
    runSecond(pacer, 0, 70);
    pacer.beginFrame(5);  // the loop stalled for several seconds
    EXPECT_EQ(pacer.getDelay(), 11);
    EXPECT_EQ(pacer.getFramesLastSecond(), 70);
}

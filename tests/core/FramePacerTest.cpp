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

TEST(FramePacer, AdjustsTheDelayByOneMillisecondEachSecondAroundSixtySixFrames) {
    struct Case {
        int framesPerSecond;
        time_t nextSecond;
        int delay;
    } cases[] = {{65, 101, 9}, {66, 101, 11}, {1, 101, 9}, {200, 101, 11}, {70, 105, 11}};
    for (const Case& c : cases) {
        FramePacer pacer(100);
        runSecond(pacer, 100, c.framesPerSecond);
        EXPECT_EQ(pacer.getDelay(), 10) << "no change within the first second";
        EXPECT_EQ(pacer.getFramesLastSecond(), 0) << "the first value shown is 0";
        pacer.beginFrame(c.nextSecond);  // a stall of several seconds counts as one
        EXPECT_EQ(pacer.getDelay(), c.delay) << c.framesPerSecond;
        EXPECT_EQ(pacer.getFramesLastSecond(), c.framesPerSecond);
    }
}

TEST(FramePacer, SlowMachineWalksTheDelayIntoNegativeValues) {
    FramePacer pacer(0);
    pacer.beginFrame(0);  // opens second 0; each later second draws 30 frames in all
    for (time_t second = 1; second <= 15; ++second) {
        runSecond(pacer, second, 30);
    }
    EXPECT_EQ(pacer.getDelay(), 10 - 15);
}

}  // namespace

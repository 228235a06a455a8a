#include "core/FramePacer.h"

#include <gtest/gtest.h>

#include <utility>

using Grevan::FramePacer;

namespace {

// Once a second the delay moves a millisecond: down after fewer than 66 frames, else up. A stall of
// several seconds counts as one, and a slow machine walks the delay through 0 into negative values.
TEST(FramePacer, AdjustsTheDelayByOneMillisecondEachSecondAroundSixtySixFrames) {
    // frames drawn each second, seconds, seconds from one to the next, delay after
    const int cases[][4] = {{65, 1, 1, 9},   {66, 1, 1, 11}, {1, 1, 1, 9},
                            {200, 1, 1, 11}, {70, 1, 5, 11}, {30, 15, 1, -5}};
    for (auto [frames, seconds, step, delay] : cases) {
        FramePacer pacer(100);
        for (int second = 0; second < seconds; ++second) {
            for (int i = 0; i < frames; ++i) {
                pacer.beginFrame(100 + second * step);
            }
            if (second == 0) {
                EXPECT_EQ(std::make_pair(pacer.getDelay(), pacer.getFramesLastSecond()),
                          std::make_pair(10, 0))
                    << "no change within the first second, whose count shows as 0";
            }
        }
        pacer.beginFrame(100 + seconds * step);
        EXPECT_EQ(pacer.getDelay(), delay) << frames;
        EXPECT_EQ(pacer.getFramesLastSecond(), frames);
    }
}

}  // namespace

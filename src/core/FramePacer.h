#pragma once

#include <ctime>

namespace Grevan {

// Keeps the main loop near its target frame rate: once a second the sleep after each frame
// grows by a millisecond when the last second drew at least the target, and shrinks by one
// when it drew fewer.
class FramePacer {
  public:
    static const int kTargetFramesPerSecond = 66;
    static const int kStartDelay = 10;  // milliseconds

    explicit FramePacer(time_t now);

    // Called at the top of every frame with the current wall-clock second.
    void beginFrame(time_t now);

    // Deliberately unbounded in both directions: a machine that never reaches the target walks
    // the delay through 0 into negative values.
    int getDelay() const { return delay; }
    int getFramesLastSecond() const { return framesLastSecond; }

  private:
    time_t secondStart;
    int framesThisSecond = 0;
    int framesLastSecond = 0;
    int delay = kStartDelay;
};

}  // namespace Grevan

#include "core/FramePacer.h"

namespace Grevan {

FramePacer::FramePacer(time_t now) : secondStart(now) {}

void FramePacer::beginFrame(time_t now) {
    if (static_cast<long>(now - secondStart) > 0) {
        framesLastSecond = framesThisSecond;
        framesThisSecond = 0;
        secondStart = now;
        if (framesLastSecond < kTargetFramesPerSecond) {
            delay -= 1;
        } else {
            delay += 1;
        }
    }
    framesThisSecond += 1;
}

}  // namespace Grevan

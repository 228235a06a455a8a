#include "actors/RoleDescription.h"

#include <fstream>
#include <utility>

namespace Grevan {

// count { id delay loop strip frameCount { left top right bottom }* }*
bool RoleDescription::read(const char* path) {
    actionCount = 0;
    actions.clear();
    problem.clear();
    std::ifstream in(path);
    if (!in) {
        return false;
    }
    in >> actionCount;
    for (int i = 0; i < actionCount; i++) {
        RoleAction action;
        int loops = 0;
        int count = 0;
        if (!(in >> action.id >> action.frameDelay >> loops >> action.strip >> count)) {
            return true;
        }
        if (count < 0 || count > kMaxFrames) {
            problem = "Role description " + std::string(path) + " gives " + std::to_string(count) +
                      " frames for action " + std::to_string(action.id) + "; an action holds 0 to " +
                      std::to_string(kMaxFrames) + ".";
            return true;
        }
        // A negative delay would count down past every int and never change the frame again.
        if (action.frameDelay < 0) {
            problem = "Role description " + std::string(path) + " gives a frame delay of " +
                      std::to_string(action.frameDelay) + " for action " + std::to_string(action.id) +
                      "; a delay is 0 or more.";
            return true;
        }
        action.loop = loops != 0;
        for (int f = 0; f < count; f++) {
            FrameRect frame;
            if (!(in >> frame.left >> frame.top >> frame.right >> frame.bottom)) {
                break;
            }
            action.frames.push_back(frame);
        }
        actions.push_back(std::move(action));
    }
    return true;
}

}  // namespace Grevan

#pragma once

#include <string>
#include <vector>

namespace Grevan {

// One frame of a strip: right and bottom are exclusive.
struct FrameRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

// One action block of a role description: an image strip and the frames cut from it.
struct RoleAction {
    int id = 0;
    int frameDelay = 0;  // extra ticks each frame is held
    bool loop = false;
    std::string strip;  // image path, relative to the working directory as written
    std::vector<FrameRect> frames;
};

// A role's description file, image/role/<role>/config.dat: an action count, then per action its
// id, frame delay, loop flag, strip path, frame count and that many frame rectangles, all
// separated by any white space. It is read in full before anything is loaded from it, by the
// game's animations and by the asset check of the vesk command alike.
class RoleDescription {
  public:
    static const int kMaxFrames = 20;  // frames of one action

    // False when the file cannot be opened. Reading ends quietly at the first incomplete record,
    // keeping the frames read of it; an action announcing more than kMaxFrames frames (or fewer
    // than none) ends reading too, and getProblem() says so.
    bool read(const char* path);

    // The count the file announces, which may differ from the actions read.
    int getActionCount() const { return actionCount; }
    const std::vector<RoleAction>& getActions() const { return actions; }
    // Why reading ended early; empty when it did not, or when it ended at an incomplete record.
    const std::string& getProblem() const { return problem; }

  private:
    int actionCount = 0;
    std::vector<RoleAction> actions;
    std::string problem;
};

}  // namespace Grevan

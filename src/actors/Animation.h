#pragma once

#include <allegro.h>

#include <memory>
#include <vector>

#include "actors/AniAction.h"

namespace Grevan {

// Which way a character faces; an animation facing left is drawn mirrored.
enum Facing : int { FACING_RIGHT = 0, FACING_LEFT = 1 };

// The sign of a step along x in that direction: -1 left, +1 right.
inline int signOf(Facing facing) {
    return facing == FACING_LEFT ? -1 : 1;
}

// The frames of one character role and their playback: a current action, a current frame, a
// frame-delay countdown, a loop flag and a facing direction.
class Animation {
  public:
    Animation() = default;
    virtual ~Animation();
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;

    // Reads a role description and appends its actions. An unopenable file is ignored
    // silently; a missing strip, an action of more than AniAction::kMaxFrames frames or a
    // negative frame delay ends loading with a message, keeping the actions read before.
    void load(const char* path);
    // Drops every action; nothing is drawn until a new one is loaded and set.
    void clear();

    // Draws the current frame with its top-left corner at (x, y), mirrored when facing left.
    virtual void draw(BITMAP* target, int x, int y);

    // Selecting an unknown id changes nothing; selecting the current one restarts it.
    void setAction(int id);
    // The loop override applies even when no action has that id.
    void setAction(int id, bool loop);
    void setFrame(int n);
    // One game tick: each frame shows for frameDelay + 1 ticks; the first change comes on the
    // first tick after setAction.
    void nextFrame();

    bool hasAction(int id) const;
    int getAction() const { return action; }
    int getFrame() const { return frame; }
    int getDirection() const { return direction; }
    // FACING_LEFT draws mirrored; any other value draws as stored.
    void setDirection(int d) { direction = d; }
    bool isLooping() const { return loop; }
    int getActionCount() const { return actionCount; }
    // The size of the current frame; 0 when there is no current action or frame.
    int getFrameWidth() const;
    int getFrameHeight() const;

  private:
    BITMAP* currentFrame() const;

    std::vector<std::unique_ptr<AniAction>> actions;
    int action = 0;
    int frame = 0;
    int direction = 0;
    int actionCount = 0;
    int frameDelay = 0;
    int delayCount = 0;
    AniAction* current = nullptr;
    bool loop = true;
};

}  // namespace Grevan

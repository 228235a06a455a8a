#include "actors/Animation.h"

#include <fstream>
#include <string>

namespace Grevan {

namespace {

// Allegro trusts the rectangle it is given; one outside the strip would alias foreign memory.
bool frameFitsStrip(BITMAP* strip, int left, int top, int right, int bottom) {
    return left >= 0 && top >= 0 && right > left && bottom > top && left < strip->w && top < strip->h;
}

}  // namespace

Animation::~Animation() = default;

void Animation::clear() {
    actions.clear();
    current = nullptr;
    action = 0;
    frame = 0;
    actionCount = 0;
    frameDelay = 0;
    delayCount = 0;
    loop = true;
}

// count { id delay loop strip frameCount { left top right bottom }* }*
void Animation::load(const char* path) {
    std::ifstream in(path);
    if (!in) {
        return;
    }
    in >> actionCount;
    for (int i = 0; i < actionCount; i++) {
        int actionId = 0;
        int delay = 0;
        int loops = 0;
        std::string strip;
        int count = 0;
        if (!(in >> actionId >> delay >> loops >> strip >> count)) {
            return;
        }
        if (count < 0 || count > AniAction::kMaxFrames) {
            allegro_message("Role description %s gives %d frames for action %d; an action holds 0 to %d.",
                            path, count, actionId, AniAction::kMaxFrames);
            return;
        }
        // A negative delay would count down past every int and never change the frame again.
        if (delay < 0) {
            allegro_message(
                "Role description %s gives a frame delay of %d for action %d; a delay is 0 or more.", path,
                delay, actionId);
            return;
        }
        BITMAP* bitmap = load_bitmap(strip.c_str(), nullptr);
        if (!bitmap) {
            allegro_message("failed to load bitmap: %s", strip.c_str());
            return;
        }
        auto record = std::make_unique<AniAction>();
        record->id = actionId;
        record->frameDelay = delay;
        record->loop = loops != 0;
        record->bitmap = bitmap;
        record->frameCount = count;
        for (int f = 0; f < count; f++) {
            int left = 0;
            int top = 0;
            int right = 0;
            int bottom = 0;
            if (!(in >> left >> top >> right >> bottom)) {
                record->frameCount = f;
                break;
            }
            if (frameFitsStrip(bitmap, left, top, right, bottom)) {
                record->frames[f] = create_sub_bitmap(bitmap, left, top, right - left, bottom - top);
            }
            if (!record->frames[f]) {
                allegro_message("failed to create sub bitmap for %s", strip.c_str());
            }
        }
        actions.push_back(std::move(record));
    }
}

void Animation::draw(BITMAP* target, int x, int y) {
    BITMAP* image = currentFrame();
    if (!image) {
        return;
    }
    if (direction == 1) {
        draw_sprite_h_flip(target, image, x, y);
    } else {
        draw_sprite(target, image, x, y);
    }
}

void Animation::setAction(int id) {
    for (const std::unique_ptr<AniAction>& candidate : actions) {
        if (candidate->id == id) {
            current = candidate.get();
            action = id;
            frame = 0;
            frameDelay = current->frameDelay;
            loop = current->loop;
            delayCount = 0;
            return;
        }
    }
}

void Animation::setAction(int id, bool loops) {
    setAction(id);
    loop = loops;
}

void Animation::setFrame(int n) {
    bool inRange = current && n >= 0 && n < current->frameCount;
    frame = inRange ? n : 0;
}

void Animation::nextFrame() {
    if (!current || current->frameCount == 0) {
        return;
    }
    if (delayCount == 0) {
        if (frame < current->frameCount - 1) {
            frame++;
        } else if (loop) {
            frame = 0;
        }
        delayCount = frameDelay;
    } else {
        delayCount--;
    }
}

bool Animation::hasAction(int id) const {
    for (const std::unique_ptr<AniAction>& candidate : actions) {
        if (candidate->id == id) {
            return true;
        }
    }
    return false;
}

BITMAP* Animation::currentFrame() const {
    if (!current || frame < 0 || frame >= current->frameCount) {
        return nullptr;
    }
    return current->frames[frame];
}

int Animation::getFrameWidth() const {
    BITMAP* image = currentFrame();
    return image ? image->w : 0;
}

int Animation::getFrameHeight() const {
    BITMAP* image = currentFrame();
    return image ? image->h : 0;
}

}  // namespace Grevan

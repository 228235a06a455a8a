#include "actors/Animation.h"

#include <cstddef>

#include "actors/RoleDescription.h"

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

void Animation::load(const char* path) {
    RoleDescription description;
    if (!description.read(path)) {
        return;
    }
    actionCount = description.getActionCount();
    for (const RoleAction& described : description.getActions()) {
        BITMAP* bitmap = load_bitmap(described.strip.c_str(), nullptr);
        if (!bitmap) {
            allegro_message("failed to load bitmap: %s", described.strip.c_str());
            return;
        }
        auto record = std::make_unique<AniAction>();
        record->id = described.id;
        record->frameDelay = described.frameDelay;
        record->loop = described.loop;
        record->bitmap = bitmap;
        record->frameCount = static_cast<int>(described.frames.size());
        for (int f = 0; f < record->frameCount; f++) {
            const FrameRect& frame = described.frames[static_cast<std::size_t>(f)];
            if (frameFitsStrip(bitmap, frame.left, frame.top, frame.right, frame.bottom)) {
                record->frames[f] = create_sub_bitmap(bitmap, frame.left, frame.top, frame.right - frame.left,
                                                      frame.bottom - frame.top);
            }
            if (!record->frames[f]) {
                allegro_message("failed to create sub bitmap for %s", described.strip.c_str());
            }
        }
        actions.push_back(std::move(record));
    }
    if (!description.getProblem().empty()) {
        allegro_message("%s", description.getProblem().c_str());
    }
}

void Animation::draw(BITMAP* target, int x, int y) {
    BITMAP* image = currentFrame();
    if (!image) {
        return;
    }
    if (direction == FACING_LEFT) {
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

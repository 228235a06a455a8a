#include "ui/Dialog.h"

#include <algorithm>

#include "core/Game.h"

namespace Grevan {

Dialog::~Dialog() {
    release();
}

void Dialog::release() {
    std::lock_guard<std::mutex> guard(lock);
    if (bitmap) {
        destroy_bitmap(bitmap);
        bitmap = nullptr;
    }
}

Dialog& Dialog::setPosition(int px, int py) {
    std::lock_guard<std::mutex> guard(lock);
    x = px;
    y = py;
    return *this;
}

Dialog& Dialog::setText(std::string newText) {
    std::lock_guard<std::mutex> guard(lock);
    text = newText;
    lines.clear();
    int widest = 0;
    std::string rest = newText;
    // The scan resumes at index 1 of what is left, so a line feed right after another one
    // does not end a line but starts the next one; only the first line can be empty.
    size_t i = 0;
    while (i <= rest.size()) {
        if (i < rest.size() && rest[i] != '\n') {
            i++;
            continue;
        }
        std::string line = rest.substr(0, i);
        widest = std::max(widest, text_length(font, line.c_str()));
        lines.push_back(line);
        rest.erase(0, i + 1);
        i = 1;
    }
    width = (lineSpacing + margin) * 2 + widest;
    height = static_cast<int>(lines.size()) * (text_height(font) + lineSpacing) + margin * 2 + lineSpacing;
    backColor = makecol(0, 0, 0);
    textColor = makecol(255, 255, 255);
    build();
    return *this;
}

void Dialog::build() {
    if (bitmap) {
        destroy_bitmap(bitmap);
    }
    bitmap = create_bitmap(width, height);
    clear_to_color(bitmap, makecol(255, 0, 255));
    rectfill(bitmap, margin, margin, width - 1 - margin, height - 1 - margin, backColor);
    int lineY = margin + lineSpacing;
    for (const std::string& line : lines) {
        textout_ex(bitmap, font, line.c_str(), margin + lineSpacing, lineY, textColor, kClearTextBackground);
        lineY += lineSpacing + text_height(font);
    }

    y -= height;
    const MapSystem& view = Game::getInstance()->getMapSystem();
    // The tail's tip is a bottom corner of the bitmap, on the point given to setPosition.
    if (x + width - view.getClientX() > view.getClientWidth()) {
        // Opening to the right would leave the screen: the bubble opens to the left.
        x -= width;
        triangle(bitmap, width - 1, height - 1, width - margin, height - margin - lineSpacing,
                 width - margin - lineSpacing, height - margin, backColor);
    } else {
        triangle(bitmap, 0, height - 1, margin, height - margin - lineSpacing, margin + lineSpacing,
                 height - margin, backColor);
    }
}

Dialog& Dialog::setColor(int) {
    return *this;
}

Dialog& Dialog::setDelay(int frames) {
    std::lock_guard<std::mutex> guard(lock);
    delay = frames;
    return *this;
}

Dialog& Dialog::show() {
    std::lock_guard<std::mutex> guard(lock);
    visible = true;
    remaining = delay;
    return *this;
}

Dialog& Dialog::hide() {
    std::lock_guard<std::mutex> guard(lock);
    if (delay - remaining >= kShortestShowing) {
        visible = false;
    }
    return *this;
}

void Dialog::move() {
    std::lock_guard<std::mutex> guard(lock);
    if (visible && --remaining < 0) {
        visible = false;
    }
}

void Dialog::draw(BITMAP* target, int cameraX, int cameraY) {
    std::lock_guard<std::mutex> guard(lock);
    if (!visible || !bitmap) {
        return;
    }
    set_trans_blender(0, 0, 0, 200);
    draw_trans_sprite(target, bitmap, x - cameraX, y - cameraY);
}

bool Dialog::isVisible() const {
    std::lock_guard<std::mutex> guard(lock);
    return visible;
}

std::string Dialog::getText() const {
    std::lock_guard<std::mutex> guard(lock);
    return text;
}

int Dialog::getX() const {
    std::lock_guard<std::mutex> guard(lock);
    return x;
}

int Dialog::getY() const {
    std::lock_guard<std::mutex> guard(lock);
    return y;
}

int Dialog::getWidth() const {
    std::lock_guard<std::mutex> guard(lock);
    return width;
}

int Dialog::getHeight() const {
    std::lock_guard<std::mutex> guard(lock);
    return height;
}

std::vector<std::string> Dialog::getLines() const {
    std::lock_guard<std::mutex> guard(lock);
    return lines;
}

}  // namespace Grevan

#include "core/MapSystem.h"

#include <algorithm>
#include <limits>

namespace Grevan {

void MapSystem::initialize(int width, int height) {
    levelWidth = width;
    levelHeight = height;
}

void MapSystem::setBackgroundColor(int red, int green, int blue) {
    backgroundColor = makecol(red, green, blue);
}

void MapSystem::draw(BITMAP* target) {
    if (backgroundImage) {
        blit(backgroundImage, target, clientX, clientY, 0, 0, target->w, target->h);
    } else {
        clear_to_color(target, backgroundColor);
    }
}

void MapSystem::setClientWidth(int w) {
    clientWidth = w;
    marginX = w / 2;
}

void MapSystem::setClientHeight(int h) {
    clientHeight = h;
    marginY = h / 2;
}

void MapSystem::moveClient() {
    if (followObject) {
        moveClientTo(followObject->getX(), followObject->getY());
    }
}

int MapSystem::placeAxis(int client, int point, int clientSize, int margin, int levelSize) {
    // Level sizes come from map files and may be any int, so the sums are taken wide and the
    // result is brought back into an int.
    long long placed = client;
    const long long offset = static_cast<long long>(point) - client;
    if (offset > clientSize - margin) {
        placed = static_cast<long long>(point) - (clientSize - margin);
    } else if (offset < margin) {
        placed = static_cast<long long>(point) - margin;
    }
    placed = std::max(placed, 0LL);
    if (placed + clientSize > levelSize) {
        placed = static_cast<long long>(levelSize) - clientSize;
    }
    return static_cast<int>(
        std::clamp<long long>(placed, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

void MapSystem::moveClientTo(int x, int y) {
    clientX = placeAxis(clientX, x, clientWidth, marginX, levelWidth);
    clientY = placeAxis(clientY, y, clientHeight, marginY, levelHeight);
}

bool MapSystem::inClient(int x, int y) const {
    return clientX < x && x < clientX + clientWidth && clientY < y && y < clientY + clientHeight;
}

}  // namespace Grevan

#include "core/MapSystem.h"

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

int MapSystem::placeAxis(int client, int point, int clientSize, int margin) {
    int offset = point - client;
    if (offset > clientSize - margin) {
        return point - (clientSize - margin);
    }
    if (offset < margin) {
        return point - margin;
    }
    return client;
}

void MapSystem::moveClientTo(int x, int y) {
    clientX = placeAxis(clientX, x, clientWidth, marginX);
    clientY = placeAxis(clientY, y, clientHeight, marginY);
    if (clientX < 0) {
        clientX = 0;
    }
    if (clientY < 0) {
        clientY = 0;
    }
    if (clientX + clientWidth > levelWidth) {
        clientX = levelWidth - clientWidth;
    }
    if (clientY + clientHeight > levelHeight) {
        clientY = levelHeight - clientHeight;
    }
}

bool MapSystem::inClient(int x, int y) const {
    return clientX < x && x < clientX + clientWidth && clientY < y && y < clientY + clientHeight;
}

}  // namespace Grevan

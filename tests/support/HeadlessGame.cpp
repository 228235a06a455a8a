#include "support/HeadlessGame.h"

HeadlessGame::HeadlessGame() {
    buffer = create_bitmap(800, 600);
    map().setClientWidth(800);
    map().setClientHeight(600);
    game->getAimSystem().setX(-100);
    game->getAimSystem().setY(-100);
}

HeadlessGame::~HeadlessGame() {
    destroy_bitmap(buffer);
}

void HeadlessGame::runFrames(int frames) {
    for (int i = 0; i < frames; i++) {
        game->playFrame(buffer, 0);
    }
}

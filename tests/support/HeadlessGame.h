#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "core/Game.h"

// A test whose body runs with a headless game: Allegro with memory bitmaps only, the sound
// system on OpenAL's null driver, every system of the game built, a camera of 800 x 600 and a
// frame buffer of that size. The aiming sight starts off the screen, so frames show the world.
class HeadlessGame : public ::testing::Test {
  protected:
    HeadlessGame();
    ~HeadlessGame() override;

    Grevan::ObjectSystem& objects() { return game->getObjectSystem(); }
    Grevan::BlockSystem& blocks() { return game->getBlockSystem(); }
    Grevan::MapSystem& map() { return game->getMapSystem(); }
    // Whole frames of the main loop's world steps (move, aim, draw, reap, camera) into `buffer`.
    void runFrames(int frames);

    // Declared first, so that it outlives every bitmap of the tests.
    std::unique_ptr<Grevan::Game> game = std::make_unique<Grevan::Game>(Grevan::StartMode::HEADLESS);
    BITMAP* buffer = nullptr;
};

#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "core/Game.h"

// A test whose body runs with a headless game: Allegro with memory bitmaps only, the sound
// system on OpenAL's null driver, and every system of the game built.
class HeadlessGame : public ::testing::Test {
  protected:
    // The game outlives the members of the derived test, whose bitmaps need Allegro to go.
    std::unique_ptr<Grevan::Game> game = std::make_unique<Grevan::Game>(Grevan::StartMode::HEADLESS);
};

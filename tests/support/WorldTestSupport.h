#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/Game.h"
#include "world/Object.h"
#include "world/RealBody.h"

namespace GrevanTest {

// A game started without a display: Allegro's memory bitmaps work, the systems are members as
// in the real game, and the world is freed when the test ends.
class HeadlessGameTest : public ::testing::Test {
  protected:
    Grevan::Game game{Grevan::StartMode::HEADLESS};

    Grevan::ObjectSystem& objects() { return game.getObjectSystem(); }
    Grevan::BlockSystem& blocks() { return game.getBlockSystem(); }
    Grevan::MapSystem& map() { return game.getMapSystem(); }
};

// A plain object of the given rectangle, without a picture.
Grevan::Object* makeBlock(int x, int y, int width, int height, bool collidable = true);
// A rigid body of the given rectangle, without a picture.
Grevan::RealBody* makeBody(int x, int y, int width, int height);

// Writes text to a file under the build folder and returns its path.
std::string writeBuildFile(const std::string& name, const std::string& text);
// A path under the build folder for pictures a person may want to look at.
std::string buildOutputPath(const std::string& name);
// A path in the source tree.
std::string sourcePath(const std::string& relative);

}  // namespace GrevanTest

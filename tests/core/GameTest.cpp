#include "core/Game.h"

#include <gtest/gtest.h>

#include "core/GameLock.h"
#include "support/TestSupport.h"

using Grevan::Game;
using Grevan::StartMode;

namespace {

TEST(Game, HeadlessGameIsTheInstanceAndStartsWithControlLocked) {
    EXPECT_EQ(Game::getInstance(), nullptr);
    {
        Game game(StartMode::HEADLESS);
        EXPECT_EQ(Game::getInstance(), &game);
        EXPECT_FALSE(game.canControl());
        game.unlockControl();
        game.lockControl();  // no main player: it only clears the flag
        EXPECT_FALSE(game.canControl());
    }
    EXPECT_EQ(Game::getInstance(), nullptr);
}

TEST(Game, StartWithoutAVideoModeTriesBothModesAndFails) {
    Game game(StartMode::HEADLESS);
    bool started = true;
    EXPECT_EQ(GrevanTest::printedBy([&] { started = game.start(); }),
              "Failed to set video mode 800*600*32\nFailed to set video mode 640*480*32\n");
    EXPECT_FALSE(started);
    game.getScreen().flip();  // no pages: nothing to do, and no crash
}

void* countUnderTheLock(void* counter) {
    for (int i = 0; i < 100000; ++i) {
        Grevan::lockGame();
        *static_cast<long*>(counter) += 1;
        Grevan::unlockGame();
    }
    return nullptr;
}

TEST(GameLock, ThreadsTakeTurnsOnTheWorld) {
    Game game(StartMode::HEADLESS);  // creates the lock
    long counter = 0;
    void* first = Grevan::createThread(&counter, countUnderTheLock);
    void* second = Grevan::createThread(&counter, countUnderTheLock);
    Grevan::joinThread(first);
    Grevan::joinThread(second);
    EXPECT_EQ(counter, 200000);
}

}  // namespace

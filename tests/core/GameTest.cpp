#include "core/Game.h"

#include <gtest/gtest.h>

#include "core/GameLock.h"

using Grevan::Game;
using Grevan::StartMode;

TEST(Game, HeadlessGameIsTheInstanceAndStartsWithControlLocked) {
    EXPECT_EQ(Game::getInstance(), nullptr);
    {
        Game game(StartMode::HEADLESS);
        EXPECT_EQ(Game::getInstance(), &game);
        EXPECT_TRUE(game.isRunning());
        EXPECT_FALSE(game.canControl());
        game.unlockControl();
        EXPECT_TRUE(game.canControl());
        game.lockControl();
        EXPECT_FALSE(game.canControl());
        game.endGame();
        EXPECT_FALSE(game.isRunning());
    }
    EXPECT_EQ(Game::getInstance(), nullptr);
}

TEST(Game, StartWithoutAVideoModeFails) {
    Game game(StartMode::HEADLESS);
    testing::internal::CaptureStdout();
    EXPECT_FALSE(game.start());
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Failed to set video mode 800*600*32\nFailed to set video mode 640*480*32\n");
}

namespace {

struct Counter {
    long value = 0;
};

void* countUnderTheLock(void* arg) {
    Counter* counter = static_cast<Counter*>(arg);
    for (int i = 0; i < 100000; ++i) {
        Grevan::lockGame();
        counter->value += 1;
        Grevan::unlockGame();
    }
    return nullptr;
}

}  // namespace

TEST(GameLock, ThreadsTakeTurnsOnTheWorld) {
    Game game(StartMode::HEADLESS);  // creates the lock
    Counter counter;
    void* first = Grevan::createThread(&counter, countUnderTheLock);
    void* second = Grevan::createThread(&counter, countUnderTheLock);
    Grevan::joinThread(first);
    Grevan::joinThread(second);
    EXPECT_EQ(counter.value, 200000);
}

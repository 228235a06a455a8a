#include <gtest/gtest.h>

#include <cstdlib>

#include "actors/Player.h"
#include "support/CombatScene.h"

using Grevan::Player;

namespace {

using GamePlayers = CombatScene;

TEST_F(GamePlayers, AddedPlayersAreRegisteredAndAnIdSharedByTwoFindsTheFirst) {
    loadLevel(false);
    srand(3);
    Player* first = new Player("first", "soldier");
    srand(3);
    Player* second = new Player("second", "soldier");
    ASSERT_EQ(first->getPlayerId(), second->getPlayerId());
    int objectsBefore = game->getObjectSystem().getObjectCount();
    game->addPlayer(first);
    game->addPlayer(second);
    EXPECT_EQ(game->getObjectSystem().getObjectCount(), objectsBefore + 2);
    EXPECT_EQ(game->getPlayers(), (std::vector<Player*>{first, second}));
    EXPECT_EQ(game->getPlayer(first->getPlayerId()), first);
    EXPECT_EQ(game->getPlayer(first->getPlayerId() + 1), nullptr);
}

TEST_F(GamePlayers, LockingControlStopsTheMainPlayer) {
    loadLevel(false);
    Player* me = addStandingPlayer(100);
    me->moveRight(true);
    game->lockControl();
    EXPECT_TRUE(me->isMovingRight()) << "not the main player yet";
    game->setMainPlayer(me);
    game->unlockControl();
    game->lockControl();
    EXPECT_FALSE(game->canControl());
    EXPECT_FALSE(me->isMovingRight());
    EXPECT_EQ(me->getState(), Grevan::PLAYER_STAND);
}

TEST_F(GamePlayers, LoadingAMapForgetsThePlayersAndTheMainPlayer) {
    loadLevel(false);
    game->setMainPlayer(addStandingPlayer(100));
    loadLevel(true);
    EXPECT_TRUE(game->getPlayers().empty());
    EXPECT_EQ(game->getMainPlayer(), nullptr);
}

bool anyWhiteIn(BITMAP* b, int left, int top, int right, int bottom) {
    int white = makecol(255, 255, 255);
    for (int y = top; y <= bottom; y++) {
        for (int x = left; x <= right; x++) {
            if (getpixel(b, x, y) == white) {
                return true;
            }
        }
    }
    return false;
}

TEST_F(GamePlayers, TheCameraAndTheScoreLineFollowTheMainPlayerWhenThereIsOne) {
    loadLevel(false);
    Player* me = addStandingPlayer(900);
    runFrames(1);
    EXPECT_FALSE(anyWhiteIn(buffer, 200, 0, 500, 7)) << "no score line without a main player";
    EXPECT_EQ(game->getMapSystem().getClientX(), 0) << "the camera stays";
    game->setMainPlayer(me);
    runFrames(1);
    EXPECT_TRUE(anyWhiteIn(buffer, 200, 0, 500, 7));
    EXPECT_EQ(game->getMapSystem().getClientX(), 200) << "centred on the player, then held in the level";
}

}  // namespace

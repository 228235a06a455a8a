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
    game->addPlayer(first);
    game->addPlayer(second);
    EXPECT_EQ(objects().getObjects().back(), second);
    EXPECT_EQ(game->getPlayer(first->getPlayerId()), first);
    EXPECT_EQ(game->getPlayer(first->getPlayerId() + 1), nullptr);
}

TEST_F(GamePlayers, LockingControlStopsTheMainPlayerAndLoadingAMapForgetsIt) {
    loadLevel(false);
    Player* me = addStandingPlayer(100);
    me->moveRight(true);
    game->lockControl();
    EXPECT_TRUE(me->isMovingRight()) << "not the main player yet";
    game->setMainPlayer(me);
    game->lockControl();
    EXPECT_FALSE(me->isMovingRight());
    EXPECT_EQ(me->getState(), Grevan::PLAYER_STAND);
    loadLevel(true);
    EXPECT_TRUE(game->getPlayers().empty());
    EXPECT_EQ(game->getMainPlayer(), nullptr);
}

TEST_F(GamePlayers, TheCameraAndTheScoreLineFollowTheMainPlayerWhenThereIsOne) {
    loadLevel(false);
    Player* me = addStandingPlayer(900);
    EXPECT_EQ(map().getClientX(), 0) << "no main player: the camera stays";
    game->setMainPlayer(me);
    runFrames(1);
    EXPECT_GT(GrevanTest::pixelsOf(buffer, makecol(255, 255, 255), 200, 0, 500, 7), 0);
    EXPECT_EQ(map().getClientX(), 200) << "centred on the player, then held in the level";
}

}  // namespace

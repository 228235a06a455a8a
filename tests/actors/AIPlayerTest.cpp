#include "actors/AIPlayer.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <vector>

#include "actors/Gun.h"
#include "support/CombatScene.h"
#include "support/Probe.h"

using Grevan::AIPlayer;

namespace {

// Opponents on the combat level, with `me` at x 100 as the main player when a test says so.
class Opponents : public CombatScene {
  protected:
    AIPlayer* addOpponent(int x) {
        auto* opponent = new AIPlayer("opponent", "raider");
        standOnFloor(opponent, x);
        return opponent;
    }
    // An opponent with a loaded gun in hand whose grace has run out while nobody was there to
    // shoot at: it decides in the first frame that has a living main player.
    AIPlayer* addWaitingGunman(int x) {
        AIPlayer* opponent = addOpponent(x);
        gun = arm<Grevan::Gun>(opponent, 0);
        runFrames(AIPlayer::kFirstThought);
        EXPECT_LT(opponent->getThinkTimer(), 1) << "the timer runs on below 0";
        return opponent;
    }
    // Seeds rand() so that its next draws satisfy the condition; returns them.
    std::vector<int> seedSuchThat(const std::function<bool(const std::vector<int>&)>& wanted) {
        for (unsigned seed = 1;; seed++) {
            std::vector<int> draws = GrevanTest::upcomingRandoms(seed, 3);
            if (wanted(draws)) {
                return draws;
            }
        }
    }

    Grevan::Gun* gun = nullptr;
};

TEST_F(Opponents, TheFirstDecisionComesAfter50FramesAndAWalkHeadsForEitherEndOfTheMap) {
    for (bool towardsLeft : {true, false}) {
        loadLevel(false);
        game->setMainPlayer(me);
        AIPlayer* opponent = addOpponent(300);
        // A walk whose direction is the second draw: an even one walks towards -width.
        seedSuchThat([towardsLeft](const std::vector<int>& r) {
            return r[0] % 7 == 4 && ((r[1] & 1) == 0) == towardsLeft;
        });
        while (opponent->getThinkTimer() > 1) {
            runFrames(1);
            ASSERT_FALSE(opponent->isPlayerActionOn()) << "no decision in the grace";
        }
        runFrames(1);
        ASSERT_TRUE(opponent->isPlayerActionOn()) << "the 50th frame decides";
        EXPECT_EQ(opponent->getAction().type, Grevan::ACTION_MOVE_TO);
        EXPECT_EQ(opponent->getAction().x, towardsLeft ? -1000 : 1000);
    }
}

TEST_F(Opponents, ShootOnlyAtALivingMainPlayerInTheViewThroughAClearLineFromTheirTopLeftCorner) {
    enum Target { NONE, ALIVE, DEAD };
    // The scene, where the opponent stands, wall, low block, the main player, whether it shoots; the
    // low block is in the way of a line between the centres, not of one from the corner.
    const std::tuple<const char*, int, bool, bool, Target, bool> cases[] = {
        {"clear line", 300, false, false, ALIVE, true},
        {"wall between", 700, true, false, ALIVE, false},
        {"outside the view", 900, false, false, ALIVE, false},
        {"low block", 300, false, true, ALIVE, true},
        {"no main player", 300, false, false, NONE, false},
        {"dead main player", 300, false, false, DEAD, false}};
    for (auto [scene, x, wall, lowBlock, mainPlayer, shoots] : cases) {
        SCOPED_TRACE(scene);
        loadLevel(wall);
        AIPlayer* opponent = addWaitingGunman(x);
        if (lowBlock) {
            int centreY = me->getCentralY();
            // From 4 pixels above the centres' height down to the floor, between the two of them.
            objects().addObject(std::make_unique<Probe>(200, centreY - 4, 10, kFloorTop - centreY + 4));
        }
        if (mainPlayer == DEAD) {
            me->die();
        }
        game->setMainPlayer(mainPlayer == NONE ? nullptr : me);
        std::vector<int> r = seedSuchThat([](const std::vector<int>& r) { return r[0] % 7 <= 3; });
        runFrames(1);
        EXPECT_EQ(opponent->getThinkTimer() == AIPlayer::kThinkEvery, mainPlayer == ALIVE) << "decided";
        EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize() - (shoots ? 1 : 0));
        if (shoots) {
            // y from the first draw after the decision's, x from the second.
            EXPECT_EQ(opponent->getFireY(), me->getCentralY() + r[1] % 120 - 60);
            EXPECT_EQ(opponent->getFireX(), me->getCentralX() + r[2] % 120 - 60);
        }
    }
}

TEST_F(Opponents, TheEdgeGuardStopsAWalkTheSameFrameNearEitherEndWhicheverWayItGoes) {
    AIPlayer* probe = addOpponent(300);
    const int w = probe->getWidth();
    probe->die();
    // Where it stands, where it walks to, whether a script controls it, whether it stops.
    const std::tuple<int, int, bool, bool> cases[] = {{w, 1000, false, true},
                                                      {w, -1000, false, true},
                                                      {w + 1, -1000, false, false},
                                                      {1000 - 2 * w + 1, -1000, false, true},
                                                      {1000 - 2 * w + 1, 1000, false, true},
                                                      {1000 - 2 * w, 1000, false, false},
                                                      {w, -1000, true, false}};
    for (auto [x, target, controlled, stops] : cases) {
        loadLevel(false);
        AIPlayer* opponent = addOpponent(x);
        ASSERT_EQ(opponent->getX(), x);
        opponent->setControlMode(controlled);
        opponent->setAction(Grevan::PlayerAction{Grevan::ACTION_MOVE_TO, target, 0});
        runFrames(1);
        EXPECT_EQ(std::make_tuple(opponent->isPlayerActionOn(), opponent->isAnimating(),
                                  opponent->getVelocity().x == 0.0f),
                  std::make_tuple(!stops, !stops, stops))
            << x << " towards " << target;
    }
}

TEST_F(Opponents, AControlledOpponentTakesNoDecisionsAndCarriesOutEachOrderForOneMove) {
    AIPlayer* opponent = addWaitingGunman(300);
    opponent->setControlMode(true);
    game->setMainPlayer(me);
    int timer = opponent->getThinkTimer();
    runFrames(100);
    EXPECT_EQ(opponent->getThinkTimer(), timer);
    EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize());
    opponent->fire(me->getCentralX(), me->getCentralY());
    opponent->jump(true);
    runFrames(1);
    EXPECT_FALSE(opponent->isJumping());
    EXPECT_EQ(opponent->getAimX(), me->getCentralX()) << "it aims where it was told to fire";
    runFrames(60);
    EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize() - 1) << "one order, one shot";
    // Walking, it points its weapon straight ahead.
    for (bool left : {true, false}) {
        int centreX = opponent->getCentralX();
        int centreY = opponent->getCentralY();
        left ? opponent->moveLeft(true) : opponent->moveRight(true);
        runFrames(1);
        EXPECT_EQ(opponent->getAimX(), centreX + (left ? -1 : 1) * opponent->getWidth()) << left;
        EXPECT_EQ(opponent->getAimY(), centreY) << left;
        opponent->stopMoving();
    }
}

}  // namespace

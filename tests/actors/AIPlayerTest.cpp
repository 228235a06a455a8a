#include "actors/AIPlayer.h"

#include <gtest/gtest.h>

#include <functional>
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
        EXPECT_LT(opponent->getThinkTimer(), 1);
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
    std::vector<int> seedForShot() {
        return seedSuchThat([](const std::vector<int>& r) { return r[0] % 7 <= 3; });
    }

    Grevan::Gun* gun = nullptr;
};

TEST_F(Opponents, TheFirstDecisionComesAfter50FramesAndTheNextOnes20Apart) {
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
        EXPECT_EQ(opponent->getThinkTimer(), AIPlayer::kThinkEvery);
    }
}

TEST_F(Opponents, NeverShootOrWalkWithoutALivingMainPlayerAndDecideAtOnceWhenOneLives) {
    for (bool dead : {false, true}) {
        loadLevel(false);
        if (dead) {
            game->setMainPlayer(me);
            me->die();
        }
        AIPlayer* opponent = addWaitingGunman(300);
        int x = opponent->getX();
        runFrames(300);
        EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize()) << "dead " << dead;
        EXPECT_FALSE(opponent->isPlayerActionOn());
        EXPECT_EQ(opponent->getX(), x);
        EXPECT_LT(opponent->getThinkTimer(), -300) << "the timer runs on below 0";
        me->setHealth(100);
        game->setMainPlayer(me);
        runFrames(1);
        EXPECT_EQ(opponent->getThinkTimer(), AIPlayer::kThinkEvery) << "dead " << dead;
    }
}

TEST_F(Opponents, ShootOnlyFromTheViewThroughAClearLineFromTheirTopLeftCorner) {
    struct Case {
        const char* scene;
        int x;
        bool wall;
        bool lowBlock;  // in the way of a line between the centres, not of one from the corner
        bool shoots;
    } cases[] = {
        {"clear line", 300, false, false, true},
        {"wall between", 700, true, false, false},
        {"outside the view", 900, false, false, false},
        {"low block", 300, false, true, true},
    };
    for (const Case& c : cases) {
        loadLevel(c.wall);
        AIPlayer* opponent = addWaitingGunman(c.x);
        if (c.lowBlock) {
            int centreY = me->getCentralY();
            objects().addObject(new Probe(200, centreY - 4, 10, kFloorTop - centreY + 4));
            int hitX = 0;
            int hitY = 0;
            ASSERT_TRUE(blocks().checkLineCollision(opponent->getColor(), opponent->getCentralX(),
                                                    opponent->getCentralY(), me->getCentralX(), centreY,
                                                    &hitX, &hitY));
            ASSERT_NE(blocks().getObjectByPosition(hitX, hitY), me) << "the centres' line must be blocked";
        }
        game->setMainPlayer(me);
        std::vector<int> r = seedForShot();
        runFrames(1);
        EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize() - (c.shoots ? 1 : 0)) << c.scene;
        EXPECT_FALSE(opponent->isFiring()) << "an order to fire lasts one move";
        if (c.shoots) {
            // y from the first draw after the decision's, x from the second.
            EXPECT_EQ(opponent->getFireY(), me->getCentralY() + r[1] % 120 - 60) << c.scene;
            EXPECT_EQ(opponent->getFireX(), me->getCentralX() + r[2] % 120 - 60) << c.scene;
        }
    }
}

TEST_F(Opponents, TheEdgeGuardStopsAWalkTheSameFrameNearEitherEndWhicheverWayItGoes) {
    AIPlayer* probe = addOpponent(300);
    const int w = probe->getWidth();
    probe->die();
    struct Case {
        int x;
        int target;
        bool controlled;
        bool stops;
    } cases[] = {
        {w, 1000, false, true},
        {w, -1000, false, true},
        {w + 1, -1000, false, false},
        {1000 - 2 * w + 1, -1000, false, true},
        {1000 - 2 * w + 1, 1000, false, true},
        {1000 - 2 * w, 1000, false, false},
        {w, -1000, true, false},
    };
    for (const Case& c : cases) {
        loadLevel(false);
        AIPlayer* opponent = addOpponent(c.x);
        ASSERT_EQ(opponent->getX(), c.x);
        opponent->setControlMode(c.controlled);
        Grevan::PlayerAction walk;
        walk.type = Grevan::ACTION_MOVE_TO;
        walk.x = c.target;
        opponent->setAction(walk);
        runFrames(1);
        EXPECT_EQ(opponent->isPlayerActionOn(), !c.stops) << c.x << " towards " << c.target;
        EXPECT_EQ(opponent->isAnimating(), !c.stops) << c.x << " towards " << c.target;
        EXPECT_EQ(opponent->getVelocity().x == 0.0f, c.stops) << c.x << " towards " << c.target;
    }
}

TEST_F(Opponents, AControlledOpponentTakesNoDecisionsAndFiresOncePerOrder) {
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
    EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize() - 1);
    EXPECT_FALSE(opponent->isFiring());
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

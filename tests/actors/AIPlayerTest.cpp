#include "actors/AIPlayer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <tuple>
#include <vector>

#include "actors/Bullet.h"
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
    // Has the opponent decide after each of srand(1) to srand(count), putting it back where it stood
    // and taking its shots out of the air (their blood would lie in the next one's line) after each.
    struct Decisions {
        int taken = 0;
        std::set<int> walkTargets;
        std::vector<std::pair<int, int>> shotsOff;  // the point fired at less the main player's centre
    };
    Decisions decide(AIPlayer* opponent, unsigned count) {
        Decisions seen;
        const int x = opponent->getX();
        const int y = opponent->getY();
        for (unsigned seed = 1; seed <= count; seed++) {
            srand(seed);
            const int rounds = gun->getBulletCurrent();
            runFrames(1);
            seen.taken += opponent->getThinkTimer() == AIPlayer::kThinkEvery ? 1 : 0;
            if (opponent->isPlayerActionOn()) {
                seen.walkTargets.insert(opponent->getAction().x);
            }
            if (gun->getBulletCurrent() < rounds) {
                seen.shotsOff.emplace_back(opponent->getFireX() - me->getCentralX(),
                                           opponent->getFireY() - me->getCentralY());
            }
            for (Grevan::Bullet* bullet : GrevanTest::objectsOf<Grevan::Bullet>(objects())) {
                bullet->die();
            }
            opponent->stopAction();
            opponent->stopMoving();
            opponent->setVelocity(Vector());
            teleport(opponent, x, y);
            runFrames(AIPlayer::kThinkEvery - 1);
        }
        return seen;
    }

    Grevan::Gun* gun = nullptr;
};

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
        Decisions seen = decide(opponent, 40);
        EXPECT_EQ(seen.taken, mainPlayer == ALIVE ? 40 : 0);
        // A walk heads for either end of the map, whether or not the main player is in sight.
        EXPECT_EQ(seen.walkTargets, (mainPlayer == ALIVE ? std::set<int>{-1000, 1000} : std::set<int>{}));
        // Each shot aims at a random point up to 60 pixels off the centre either way.
        std::set<int> offsX, offsY;
        for (auto [offX, offY] : seen.shotsOff) {
            EXPECT_TRUE(std::abs(offX) <= 60 && std::abs(offY) <= 60) << offX << ", " << offY;
            offsX.insert(offX);
            offsY.insert(offY);
        }
        EXPECT_EQ(offsX.size() > 1 && offsY.size() > 1, shoots);
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
    const int timer = opponent->getThinkTimer();
    runFrames(100);
    EXPECT_EQ(std::make_pair(opponent->getThinkTimer(), gun->getBulletCurrent()),
              std::make_pair(timer, gun->getMagazineSize()));
    opponent->fire(me->getCentralX(), me->getCentralY());
    opponent->jump(true);
    runFrames(1);
    EXPECT_FALSE(opponent->isJumping());
    EXPECT_EQ(opponent->getAimX(), me->getCentralX()) << "it aims where it was told to fire";
    runFrames(60);
    EXPECT_EQ(gun->getBulletCurrent(), gun->getMagazineSize() - 1) << "one order, one shot";
    // Walking, it points its weapon straight ahead.
    for (bool left : {true, false}) {
        const int centreX = opponent->getCentralX(), centreY = opponent->getCentralY();
        left ? opponent->moveLeft(true) : opponent->moveRight(true);
        runFrames(1);
        EXPECT_EQ(std::make_pair(opponent->getAimX(), opponent->getAimY()),
                  std::make_pair(centreX + (left ? -1 : 1) * opponent->getWidth(), centreY))
            << left;
        opponent->stopMoving();
    }
}

}  // namespace

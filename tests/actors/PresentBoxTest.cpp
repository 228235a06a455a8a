#include "actors/PresentBox.h"

#include <gtest/gtest.h>

#include <string>

#include "actors/AIPlayer.h"
#include "support/CombatScene.h"

using Grevan::PresentBox;

namespace {

// Gift boxes on the combat level: `me` at x 100 and, when a test wants one, a box ahead of it.
class GiftBoxes : public CombatScene {
  protected:
    // A 20 x 20 box resting on the floor with its left side at x.
    PresentBox* dropBox(int x) {
        auto* box = new PresentBox();
        box->setX(x);
        box->setY(kFloorTop - 20);
        box->setWidth(20);
        box->setHeight(20);
        objects().addObject(box);
        return box;
    }
    // Moves the world, as the frame does, until the box is collected or `frames` have passed;
    // the box is reaped only by the frame after. True when it was collected.
    bool walkUntilCollected(PresentBox* box, int frames) {
        for (int i = 0; i < frames; i++) {
            objects().moveObjects();
            if (box->isDead()) {
                return true;
            }
            objects().removeDeadObjects();
        }
        return false;
    }
};

TEST_F(GiftBoxes, TheMainPlayerTouchingABoxRaisesOneOnPresentStopsAndTheBoxGoes) {
    game->setMainPlayer(me);
    PresentBox* box = dropBox(me->getX() + me->getWidth() + 30);
    runFrames(5);
    me->moveRight(true);
    ASSERT_TRUE(walkUntilCollected(box, 300));
    std::string expected = "OnPresent  " + std::to_string(box->getId()) + " " + std::to_string(box->getX()) +
                           " " + std::to_string(box->getY());
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), expected);
    EXPECT_FALSE(me->isMovingRight());
    EXPECT_EQ(me->getState(), Grevan::PLAYER_STAND);
    EXPECT_TRUE(GrevanTest::isNear(me->getVelocity(), Vector()));
    int x = me->getX();
    runFrames(3);
    EXPECT_EQ(me->getX(), x) << "stopped on the spot";
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "none") << "exactly one";
    EXPECT_TRUE(GrevanTest::objectsOf<PresentBox>(objects()).empty());
}

TEST_F(GiftBoxes, AnotherPlayerWalkingIntoABoxNeitherCollectsItNorIsStopped) {
    game->setMainPlayer(me);
    Grevan::Player* walkers[] = {addStandingPlayer(400), new Grevan::AIPlayer("opponent", "raider")};
    standOnFloor(walkers[1], 600);
    static_cast<Grevan::AIPlayer*>(walkers[1])->setControlMode(true);
    for (Grevan::Player* walker : walkers) {
        PresentBox* box = dropBox(walker->getX() + walker->getWidth() + 20);
        runFrames(5);
        walker->moveRight(true);
        EXPECT_FALSE(walkUntilCollected(box, 200));
        EXPECT_FALSE(box->isDead());
        EXPECT_TRUE(walker->isMovingRight()) << "still walking";
        EXPECT_EQ(walker->getState(), Grevan::PLAYER_WALK);
        walker->stopMoving();
    }
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "none");
}

TEST_F(GiftBoxes, WithoutAMainPlayerABoxReactsToNothing) {
    PresentBox* box = dropBox(300);
    Grevan::Object* floor = objects().getObjects().front();
    for (Grevan::Object* other : {floor, static_cast<Grevan::Object*>(me)}) {
        for (int side = 0; side < 4; side++) {
            box->handleCollision(side, other);
        }
    }
    me->moveRight(true);
    EXPECT_FALSE(walkUntilCollected(box, 200));
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "none");
    EXPECT_TRUE(me->isMovingRight());
}

}  // namespace

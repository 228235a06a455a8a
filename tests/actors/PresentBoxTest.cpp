#include "actors/PresentBox.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CombatScene.h"

using Grevan::Player;
using Grevan::PresentBox;

namespace {

class GiftBoxes : public CombatScene {
  protected:
    // Drops a 20 x 20 box on the floor 20 pixels ahead of the walker, lets it walk right and moves
    // the world, as the frame does, until the box is collected or 200 frames have passed; the
    // box is reaped only by the frame after. The box when it was collected, else null.
    PresentBox* walkIntoABox(Player* walker) {
        auto* box = new PresentBox();
        box->setX(walker->getX() + walker->getWidth() + 20);
        box->setY(kFloorTop - 20);
        box->setWidth(20);
        box->setHeight(20);
        objects().addObject(std::unique_ptr<Grevan::PresentBox>(box));
        runFrames(5);
        walker->moveRight(true);
        for (int i = 0; i < 200; i++) {
            objects().moveObjects();
            if (box->isDead()) {
                return box;
            }
            objects().removeDeadObjects();
        }
        return nullptr;
    }
};

TEST_F(GiftBoxes, OnlyTheMainPlayerCollectsABoxRaisingOneOnPresentAndIsStoppedOnTheSpot) {
    game->setMainPlayer(me);
    PresentBox* box = walkIntoABox(me);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "OnPresent  " + std::to_string(box->getId()) +
                                                                  " " + std::to_string(box->getX()) + " " +
                                                                  std::to_string(box->getY()));
    EXPECT_EQ(me->getState(), Grevan::PLAYER_STAND);
    EXPECT_TRUE(GrevanTest::isNear(me->getVelocity(), Vector()));
    int x = me->getX();
    runFrames(3);
    EXPECT_EQ(me->getX(), x) << "stopped on the spot";
    EXPECT_TRUE(GrevanTest::objectsOf<PresentBox>(objects()).empty());
    // Nobody else collects a box nor is stopped by it, and without a main player nobody does.
    const std::pair<Player*, Player*> walkerAndMainPlayer[] = {{addStandingPlayer(400), me}, {me, nullptr}};
    for (auto [walker, mainPlayer] : walkerAndMainPlayer) {
        game->setMainPlayer(mainPlayer);
        EXPECT_EQ(walkIntoABox(walker), nullptr) << walker->getX();
        EXPECT_TRUE(walker->isMovingRight()) << "still walking";
        walker->stopMoving();
    }
    EXPECT_EQ(GrevanTest::takeEvent(game->getScriptSystem()), "none") << "exactly one OnPresent";
}

}  // namespace

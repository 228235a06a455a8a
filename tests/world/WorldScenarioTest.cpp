#include <gtest/gtest.h>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::RealBody;
using GrevanTest::makeBody;

namespace {

// Bodies dropped into the meadow level, run through whole frames of the game.
class WorldScenario : public HeadlessGame {
  protected:
    void SetUp() override { game->loadMap("maps/meadow.map"); }
};

TEST_F(WorldScenario, DroppedBodiesComeToRestOnePixelIntoWhatTheyLandOn) {
    struct Case {
        const char* onto;
        int x, y, width, height;
        int surfaceY;  // the top of what it lands on, found there by a point query
    } cases[] = {
        {"ground", 300, 400, 20, 30, 520},
        {"long platform", 500, 300, 16, 16, 420},
        {"rock, by its rectangle", 1090, 380, 20, 20, 480},
        {"crate stack", 824, 300, 12, 12, 440},
    };
    std::vector<RealBody*> bodies;
    for (const Case& c : cases) {
        bodies.push_back(makeBody(c.x, c.y, c.width, c.height));
        objects().addObject(bodies.back());
    }
    runFrames(150);
    for (size_t i = 0; i < bodies.size(); ++i) {
        const Case& c = cases[i];
        EXPECT_EQ(bodies[i]->getX(), c.x) << c.onto;
        EXPECT_EQ(bodies[i]->getY(), c.surfaceY - c.height + 1) << c.onto;
        EXPECT_EQ(bodies[i]->getBoard(), blocks().getObjectByPosition(c.x + 1, c.surfaceY + 1)) << c.onto;
        EXPECT_FALSE(bodies[i]->isFree()) << c.onto;
        EXPECT_FLOAT_EQ(bodies[i]->getSlidingFriction(), 0.12f) << c.onto;
    }
}

TEST_F(WorldScenario, RidersFollowASinkingLiftAndFallWhenItSlidesAway) {
    // A lift is a body that is neither free nor on a board: no gravity, no friction. It works in
    // the open sky west of the low platform, and slides off over it.
    RealBody* lift = makeBody(300, 200, 100, 12);
    lift->setFree(false);
    lift->setVelocity(Vector(0, 1));
    objects().addObject(lift);
    RealBody* riders[] = {makeBody(320, 150, 20, 20), makeBody(360, 120, 16, 16)};
    for (RealBody* rider : riders) {
        objects().addObject(rider);
    }
    // Each time the lift sinks away it lets go of its riders; they fall after it and land again.
    int landings[2] = {0, 0};
    for (int i = 0; i < 100; ++i) {
        runFrames(1);
        for (int r = 0; r < 2; ++r) {
            landings[r] += riders[r]->getBoard() == lift ? 1 : 0;
            int gap = lift->getY() - (riders[r]->getY() + riders[r]->getHeight());
            if (i >= 50) {
                EXPECT_GE(gap, -1) << "rider " << r << " sank into the lift in frame " << i;
                EXPECT_LE(gap, 25) << "rider " << r << " was left behind in frame " << i;
            }
        }
    }
    EXPECT_GE(lift->getY(), 300);
    EXPECT_GE(landings[0], 3);
    EXPECT_GE(landings[1], 3);

    lift->setVelocity(Vector(3, 0));
    runFrames(120);
    EXPECT_GT(lift->getX(), 600);
    EXPECT_TRUE(lift->getRiders().empty());
    for (RealBody* rider : riders) {
        EXPECT_EQ(rider->getX(), rider == riders[0] ? 320 : 360) << "carried straight down";
        EXPECT_EQ(rider->getY(), 520 - rider->getHeight() + 1);
        EXPECT_EQ(rider->getBoard(), blocks().getObjectByPosition(rider->getX(), 530));
    }
}

}  // namespace

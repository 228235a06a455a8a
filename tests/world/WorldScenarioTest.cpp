#include <gtest/gtest.h>

#include "support/WorldTestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using GrevanTest::makeBody;

// Bodies dropped into the meadow level, run through whole frames of the game.
class WorldScenario : public GrevanTest::HeadlessGameTest {
  protected:
    void SetUp() override {
        game.loadMap("maps/meadow.map");
        frame = create_bitmap(800, 600);
    }
    void TearDown() override { destroy_bitmap(frame); }

    void run(int frames) {
        for (int i = 0; i < frames; ++i) {
            game.playFrame(frame, 0);
        }
    }

    // The level's solid piece at a point.
    Object* pieceAt(int x, int y) { return blocks().getObjectByPosition(x, y); }

    BITMAP* frame = nullptr;
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
        {"wall top", 2210, 100, 20, 24, 280},
    };
    std::vector<RealBody*> bodies;
    for (const Case& c : cases) {
        bodies.push_back(makeBody(c.x, c.y, c.width, c.height));
        objects().addObject(bodies.back());
    }
    run(150);
    for (size_t i = 0; i < bodies.size(); ++i) {
        const Case& c = cases[i];
        RealBody* body = bodies[i];
        EXPECT_EQ(body->getX(), c.x) << c.onto;
        EXPECT_EQ(body->getY(), c.surfaceY - c.height + 1) << c.onto;
        EXPECT_FALSE(body->isFree()) << c.onto;
        EXPECT_EQ(body->getBoard(), pieceAt(c.x + 1, c.surfaceY + 1)) << c.onto;
        EXPECT_EQ(body->getVelocity().y, 0.0f) << c.onto;
        EXPECT_FLOAT_EQ(body->getSlidingFriction(), 0.12f) << c.onto;
    }
}

TEST_F(WorldScenario, RidersFollowASinkingLiftAndFallWhenItSlidesAway) {
    // A lift is a body that is neither free nor on a board: no gravity, no friction.
    RealBody* lift = makeBody(2270, 200, 100, 12);
    lift->setFree(false);
    lift->setVelocity(Vector(0, 1));
    objects().addObject(lift);
    struct Rider {
        RealBody* body;
        int x;
    } riders[] = {{makeBody(2290, 150, 20, 20), 2290}, {makeBody(2330, 120, 16, 16), 2330}};
    for (const Rider& rider : riders) {
        objects().addObject(rider.body);
    }

    // Each time the lift sinks away it lets go of its riders; they fall after it and land again.
    int landings[2] = {0, 0};
    for (int i = 0; i < 100; ++i) {
        run(1);
        for (int r = 0; r < 2; ++r) {
            RealBody* body = riders[r].body;
            if (body->getBoard() == lift) {
                ++landings[r];
            }
            if (i >= 50) {
                int gap = lift->getY() - (body->getY() + body->getHeight());
                EXPECT_GE(gap, -1) << "rider " << r << " sank into the lift in frame " << i;
                EXPECT_LE(gap, 25) << "rider " << r << " was left behind in frame " << i;
            }
        }
    }
    EXPECT_GE(lift->getY(), 300);
    for (int r = 0; r < 2; ++r) {
        EXPECT_GE(landings[r], 3) << "rider " << r;
        EXPECT_EQ(riders[r].body->getX(), riders[r].x);
    }

    lift->setVelocity(Vector(3, 0));
    run(120);
    EXPECT_GT(lift->getX(), 2600);
    for (const Rider& rider : riders) {
        RealBody* body = rider.body;
        EXPECT_EQ(body->getX(), rider.x);
        EXPECT_EQ(body->getY(), 520 - body->getHeight() + 1);
        EXPECT_EQ(body->getBoard(), pieceAt(rider.x, 530));
    }
    EXPECT_TRUE(lift->getRiders().empty());
}

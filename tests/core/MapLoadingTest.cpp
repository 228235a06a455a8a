#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/WorldTestSupport.h"

using Grevan::Object;
using Grevan::RealBody;
using GrevanTest::writeBuildFile;

namespace {

// A level of 1000 x 600 on a sky-blue background: a solid crate and a decorative bush.
const char* const kSmallLevel =
    "1\n1000 600\n150 204 236\n2\n"
    "crate.bmp 1 0 100 460 0 0 0 0\n"
    "bush.bmp 2 1 300 456 0 0 0 0\n";

const char* const kIncompleteHeader =
    "its header (an integer, width, height, red, green, blue, piece count) is incomplete";

std::string loadCapturingOutput(Grevan::Game& game, const std::string& path) {
    testing::internal::CaptureStdout();
    game.loadMap(path.c_str());
    return testing::internal::GetCapturedStdout();
}

}  // namespace

class MapLoading : public GrevanTest::HeadlessGameTest {
  protected:
    std::vector<Object*> solids() {
        std::vector<Object*> found;
        for (Object* o : objects().getObjects()) {
            if (o->isCollidable()) {
                found.push_back(o);
            }
        }
        return found;
    }
};

TEST_F(MapLoading, PiecesBecomeVisibleObjectsAndRecordsOfOtherKindsAreSkippedInFull) {
    const std::string path = writeBuildFile("map_kinds.map",
                                            "7 1000 600 150 204 236 5\n"
                                            "crate.bmp 3 0 100 460 9 9 9 9\n"
                                            "tree.bmp 0 2 200 300 0 0 0 0\n"
                                            "bush.bmp 2 1 300 456 0 0 0 0\n"
                                            "rock.bmp 1 -1 400 480 0 0 0 0\n"
                                            "wall.bmp 1 0 600 280 1 2 3 4\n");
    EXPECT_EQ(loadCapturingOutput(game, path), "");
    struct Expected {
        int x, y, width, height, layer;
        bool solid;
    } expected[] = {
        {100, 460, 40, 40, 3, true},
        {300, 456, 96, 44, 2, false},
        {600, 280, 40, 240, 1, true},
    };
    ASSERT_EQ(objects().getObjectCount(), 3);
    for (int i = 0; i < 3; ++i) {
        Object* o = objects().getObjects()[i];
        const Expected& e = expected[i];
        EXPECT_EQ(o->getX(), e.x);
        EXPECT_EQ(o->getY(), e.y);
        EXPECT_EQ(o->getWidth(), e.width);
        EXPECT_EQ(o->getHeight(), e.height);
        EXPECT_EQ(static_cast<int>(o->getLayer()), e.layer);
        EXPECT_EQ(o->isCollidable(), e.solid);
        EXPECT_TRUE(o->isVisible());
    }
    EXPECT_EQ(map().getWidth(), 1000);
    EXPECT_EQ(map().getHeight(), 600);
    EXPECT_EQ(map().getBackgroundColor(), makecol(150, 204, 236));
    EXPECT_EQ(blocks().getColumns(), 7u);
    EXPECT_EQ(blocks().getObjectByPosition(110, 470), objects().getObjects()[0]);
    EXPECT_EQ(blocks().getObjectByPosition(310, 470), nullptr);
}

TEST_F(MapLoading, RefusedMapLeavesTheLevelAsItWasAndNamesTheFile) {
    game.loadMap(writeBuildFile("map_refusal_start.map", kSmallLevel).c_str());
    const std::vector<Object*> before = objects().getObjects();
    ASSERT_EQ(before.size(), 2u);
    map().setClientX(123);

    struct Case {
        const char* name;
        const char* text;  // null: the file does not exist
        const char* reason;
    } cases[] = {
        {"missing.map", nullptr, "the file cannot be opened"},
        {"empty.map", "", kIncompleteHeader},
        {"short_header.map", "1 800 600 1 2", kIncompleteHeader},
        {"word_in_header.map", "1 800 wide 1 2 3 0", kIncompleteHeader},
        {"huge_number.map", "1 99999999999 600 1 2 3 0", kIncompleteHeader},
        {"zero_width.map", "1 0 600 1 2 3 0", "the level size 0 x 600 is outside 1 to 32768"},
        {"negative_height.map", "1 800 -5 1 2 3 0", "the level size 800 x -5 is outside 1 to 32768"},
        {"too_wide.map", "1 32769 600 1 2 3 0", "the level size 32769 x 600 is outside 1 to 32768"},
        {"too_high.map", "1 600 32769 1 2 3 0", "the level size 600 x 32769 is outside 1 to 32768"},
        {"too_large.map", "1 32768 32768 1 2 3 0", "the level size 32768 x 32768 is over 67108864 pixels"},
        {"negative_count.map", "1 800 600 1 2 3 -1", "the piece count -1 is outside 0 to 100000"},
        {"too_many.map", "1 800 600 1 2 3 100001", "the piece count 100001 is outside 0 to 100000"},
        {"bad_colour.map", "1 800 600 1 256 3 0", "the background colour 1 256 3 is outside 0 to 255"},
        {"far_piece.map", "1 800 600 1 2 3 2 crate.bmp 0 0 10 10 0 0 0 0 crate.bmp 0 0 10 -1000001 0 0 0 0",
         "piece 2 lies at 10, -1000001, beyond 1000000 pixels"},
    };
    for (const Case& c : cases) {
        const std::string path = c.text ? writeBuildFile(c.name, c.text)
                                        : GrevanTest::buildOutputPath(std::string("absent_") + c.name);
        const std::string output = loadCapturingOutput(game, path);
        EXPECT_EQ(output, "Cannot load map " + path + ": " + c.reason + "\n") << c.name;
        EXPECT_EQ(objects().getObjects(), before) << c.name;
        EXPECT_EQ(map().getWidth(), 1000) << c.name;
        EXPECT_EQ(map().getBackgroundColor(), makecol(150, 204, 236)) << c.name;
        EXPECT_EQ(blocks().getColumns(), 7u) << c.name;
        EXPECT_EQ(blocks().getObjectByPosition(110, 470), before[0]) << c.name;
    }
    EXPECT_EQ(map().getClientX(), 123);
}

TEST_F(MapLoading, FileThatEndsEarlyOrHoldsAWordForANumberQuietlyKeepsThePiecesBeforeIt) {
    struct Case {
        const char* name;
        const char* text;
        int pieces;
    } cases[] = {
        {"short_pieces.map", "1 1000 600 0 0 0 3\ncrate.bmp 0 0 10 10 0 0 0 0\nrock.bmp 0 0 60 10 0 0 0 0\n",
         2},
        {"word_for_x.map",
         "1 1000 600 0 0 0 3\ncrate.bmp 0 0 10 10 0 0 0 0\nrock.bmp 0 0 left 10 0 0 0 0\nbush.bmp 0 1 5 5 0 "
         "0 0 0\n",
         1},
        {"ignored_fields_missing.map", "1 1000 600 0 0 0 1\ncrate.bmp 0 0 10 10\n", 0},
        {"no_pieces.map", "1 1000 600 0 0 0 0", 0},
        {"trailing_text.map", "1 1000 600 0 0 0 1 crate.bmp 0 0 10 10 0 0 0 0 and more", 1},
    };
    for (const Case& c : cases) {
        game.loadMap(writeBuildFile("short_start.map", kSmallLevel).c_str());
        const std::string path = writeBuildFile(c.name, c.text);
        const std::string output = loadCapturingOutput(game, path);
        EXPECT_EQ(output, "") << c.name;
        EXPECT_EQ(objects().getObjectCount(), c.pieces) << c.name;
        EXPECT_EQ(map().getBackgroundColor(), makecol(0, 0, 0)) << c.name;
    }
}

TEST_F(MapLoading, MissingPictureLeavesAPieceWithoutImageAndSize) {
    const std::string path =
        writeBuildFile("missing_picture.map", "1 1000 600 0 0 0 1 nothing.bmp 0 0 10 10 0 0 0 0");
    EXPECT_EQ(loadCapturingOutput(game, path), "Failed to load bitmap image/object/nothing.bmp");
    ASSERT_EQ(objects().getObjectCount(), 1);
    Object* piece = objects().getObjects()[0];
    EXPECT_EQ(piece->getImage(), nullptr);
    EXPECT_EQ(piece->getWidth(), 0);
}

TEST_F(MapLoading, LoadingSweepsAwayTheOldLevelAndLeavesNoBodyOnAGoneObject) {
    game.loadMap(writeBuildFile("sweep_start.map", kSmallLevel).c_str());
    Object* crate = solids().at(0);
    RealBody* box = GrevanTest::makeBody(105, 441, 20, 20);
    RealBody* rider = GrevanTest::makeBody(108, 432, 10, 10);
    objects().addObject(box);
    objects().addObject(rider);
    box->handleCollision(Grevan::SIDE_BOTTOM, crate);
    rider->handleCollision(Grevan::SIDE_BOTTOM, box);
    RealBody unregistered;
    unregistered.handleCollision(Grevan::SIDE_BOTTOM, crate);
    const int firstNewId = rider->getId() + 2;  // the sweep never resets ids

    game.loadMap(writeBuildFile("sweep_next.map", kSmallLevel).c_str());
    EXPECT_EQ(objects().getObjectCount(), 2);
    EXPECT_GE(objects().getObjects()[0]->getId(), firstNewId);
    EXPECT_EQ(unregistered.getBoard(), nullptr);
    EXPECT_TRUE(unregistered.isFree());
}

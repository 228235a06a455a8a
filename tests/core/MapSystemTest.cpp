#include "core/MapSystem.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "actors/Gun.h"
#include "core/MapFile.h"
#include "support/CombatScene.h"
#include "support/HeadlessGame.h"
#include "support/Probe.h"
#include "support/TestFolder.h"
#include "support/TestSupport.h"

using Grevan::MapSystem;
using Grevan::Object;

namespace {

TEST(MapSystem, CameraCentresOnThePointAndThenKeepsWithinTheLevel) {
    // The level's size, the camera's width and x before, the point, the camera's corner after. An odd
    // width leaves a one-pixel dead zone between the two margins (the last two); a level narrower
    // than the camera is clamped last (the sixth).
    const std::tuple<int, int, int, int, int, int, int, int> cases[] = {
        {2000, 600, 800, 0, 100, 300, 0, 0},      {2000, 600, 800, 0, 1900, 300, 1200, 0},
        {2000, 600, 800, 900, 1000, 300, 600, 0}, {2000, 2000, 800, 0, 1000, 1500, 600, 1200},
        {2000, 600, 800, 0, 399, 300, 0, 0},      {640, 480, 800, 0, 100, 100, -160, -120},
        {3000, 600, 801, 599, 1000, 300, 599, 0}, {3000, 600, 801, 599, 998, 300, 598, 0}};
    for (auto [levelWidth, levelHeight, clientWidth, startX, pointX, pointY, clientX, clientY] : cases) {
        MapSystem map;
        map.initialize(levelWidth, levelHeight);
        map.setClientWidth(clientWidth);
        map.setClientHeight(600);
        map.setClientX(startX);
        map.moveClientTo(pointX, pointY);
        EXPECT_EQ(std::make_pair(map.getClientX(), map.getClientY()), std::make_pair(clientX, clientY))
            << pointX << ", " << pointY << " in a level " << levelWidth << " x " << levelHeight;
    }
}

TEST(MapSystem, PointsOnTheCamerasBorderAreOutsideItAndAFollowedObjectIsTrackedByItsCorner) {
    MapSystem map;
    map.initialize(3000, 600);
    map.setClientWidth(800);
    map.setClientHeight(600);
    map.setClientX(100);
    map.setClientY(50);
    const std::tuple<int, int, bool> cases[] = {{100, 300, false}, {101, 300, true}, {899, 300, true},
                                                {900, 300, false}, {500, 50, false}, {500, 649, true},
                                                {500, 650, false}};
    for (auto [x, y, inside] : cases) {
        EXPECT_EQ(map.inClient(x, y), inside) << x << ", " << y;
    }
    map.moveClient();  // nothing to follow
    EXPECT_EQ(map.getClientX(), 100);
    Probe followed(1000, 300, 200, 100);
    map.setFollowObject(&followed);
    map.moveClient();
    EXPECT_EQ(map.getClientX(), 1000 - 400);
}

// A level of 1000 x 600 on a sky-blue background: a solid crate and a decorative bush.
const char* const kSmallLevel =
    "1 1000 600 150 204 236 2 crate.bmp 1 0 100 460 0 0 0 0 bush.bmp 2 1 300 456 0 0 0 0";

class MapLoading : public HeadlessGame {
  protected:
    // Writes the map file (none when text is null) and loads it; returns what loading printed.
    std::string load(const std::string& name, const char* text) {
        std::string path = folder.getPath() + "/" + name;
        if (text) {
            folder.writeFile(name, text);
        }
        return GrevanTest::printedBy([&] { game->loadMap(path.c_str()); });
    }

    TestFolder folder;
};

// Pieces naming one picture share one bitmap, which lives as long as the level.
TEST_F(MapLoading, PiecesBecomeVisibleObjectsSharingTheirPicturesAndRecordsOfOtherKindsAreSkippedInFull) {
    EXPECT_EQ(load("kinds.map",
                   "7 1000 600 150 204 236 6\n"
                   "crate.bmp 3 0 100 460 9 9 9 9\n"
                   "tree.bmp 0 2 200 300 0 0 0 0\n"
                   "bush.bmp 2 1 300 456 0 0 0 0\n"
                   "rock.bmp 1 -1 400 480 0 0 0 0\n"
                   "wall.bmp 1 0 600 280 1 2 3 4\n"
                   "crate.bmp 1 1 800 460 0 0 0 0\n"),
              "");
    const std::tuple<Rect, int, bool> expected[] = {{{100, 140, 460, 500}, 3, true},
                                                    {{300, 396, 456, 500}, 2, false},
                                                    {{600, 640, 280, 520}, 1, true},
                                                    {{800, 840, 460, 500}, 1, false}};
    const std::vector<Object*> pieces = objects().getObjects();
    ASSERT_EQ(pieces.size(), 4u);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(std::make_tuple(*pieces[i]->getRectangle(), static_cast<int>(pieces[i]->getLayer()),
                                  pieces[i]->isCollidable()),
                  expected[i]);
    }
    EXPECT_EQ(blocks().getColumns(), 7u);
    EXPECT_EQ(blocks().getObjectByPosition(110, 470), pieces[0]);
    EXPECT_EQ(blocks().getObjectByPosition(310, 470), nullptr) << "decoration stays out of the block map";
    EXPECT_EQ(
        std::make_tuple(pieces[0]->getImage() == pieces[3]->getImage(),
                        pieces[0]->getImage() == pieces[1]->getImage(), game->getPictureCache().getCount()),
        std::make_tuple(true, false, 3));
    runFrames(1);
    load("start.map", kSmallLevel);
    EXPECT_EQ(game->getPictureCache().getCount(), 2) << "the old level's wall went with it";
}

TEST_F(MapLoading, AnUnopenableFileOrARefusedLevelIsReportedAndTheLevelStays) {
    load("start.map", kSmallLevel);
    const std::vector<Object*> before = objects().getObjects();
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"missing.map", nullptr, "the file cannot be opened"},
        {"too_many.map", "1 800 600 1 2 3 100001", "the piece count 100001 is too large: at most 100000"},
    };  // the file's name, its text (null: it does not exist), the reason given
    for (auto [name, text, reason] : cases) {
        EXPECT_EQ(load(name, text),
                  "Cannot load map " + folder.getPath() + "/" + name + ": " + reason + "\n");
        EXPECT_EQ(std::make_tuple(objects().getObjects(), map().getWidth(), map().getBackgroundColor(),
                                  blocks().getObjectByPosition(110, 470)),
                  std::make_tuple(before, 1000, makecol(150, 204, 236), before[0]))
            << name;
    }
}

TEST_F(MapLoading, OddHeadersAreLoadedAsWrittenWithUnreadFieldsLeftAtZero) {
    // The header, the level's size, background colour and piece count; a word reads as 0, and 100000
    // pieces are the most.
    const std::tuple<const char*, int, int, int, int, int, int> cases[] = {
        {"", 0, 0, 0, 0, 0, 0},
        {"1 800 wide 1 2 3 1 crate.bmp 0 0 10 10 0 0 0 0", 800, 0, 0, 0, 0, 0},
        {"1 0 600 1 2 3 0", 0, 600, 1, 2, 3, 0},
        {"1 -50 -1 1 2 3 1 crate.bmp 0 0 10 10 0 0 0 0", -50, -1, 1, 2, 3, 1},
        {"1 -40000 -40000 1 2 3 0", -40000, -40000, 1, 2, 3, 0},
        {"1 800 600 1 2 3 -1 crate.bmp 0 0 10 10 0 0 0 0", 800, 600, 1, 2, 3, 0},
        {"1 800 600 -1 256 3 0", 800, 600, -1, 256, 3, 0},
        {"1 800 600 1 2 3 100000 crate.bmp 0 1 10 10 0 0 0 0", 800, 600, 1, 2, 3, 100000}};
    for (auto [text, width, height, red, green, blue, pieces] : cases) {
        load("start.map", kSmallLevel);
        EXPECT_EQ(load("odd.map", text), "") << text;
        EXPECT_EQ(std::make_tuple(map().getWidth(), map().getHeight(), map().getBackgroundColor(),
                                  objects().getObjectCount()),
                  std::make_tuple(width, height, makecol(red, green, blue), pieces))
            << text;
        runFrames(2);
    }
}

TEST_F(MapLoading, MissingRecordsRepeatTheLastOneWithTheFieldsItCouldNotRead) {
    using Places = std::vector<std::pair<int, int>>;
    const int far = Grevan::MapFile::kFarthestPiece;
    const std::pair<const char*, Places> cases[] = {
        {"3 crate.bmp 0 0 10 10 0 0 0 0 rock.bmp 0 0 60 20 0 0 0 0", {{10, 10}, {60, 20}, {60, 20}}},
        // The word reads as 0; y and the fields after it are not read.
        {"3 crate.bmp 0 0 10 10 0 0 0 0 rock.bmp 0 0 left 20 0 0 0 0", {{10, 10}, {0, 10}, {0, 10}}},
        {"2 crate.bmp 0 0 10 10", {{10, 10}, {10, 10}}},  // the ignored fields are missing
        {"1 crate.bmp 0 0 10 10 0 0 0 0 and more", {{10, 10}}},
        {"4 crate.bmp 0 0 10 10 0 0 0 0 tree.bmp 0 2 30 10", {{10, 10}}},  // a skipped kind stays skipped
        // Beyond an int reads as the largest int and ends reading; far away is as far as pieces go.
        {"2 crate.bmp 0 0 20000000000 10 0 0 0 0 rock.bmp 0 0 60 20 0 0 0 0", {{far, 0}, {far, 0}}},
        {"1 crate.bmp 0 0 -2000000000 2000000000 0 0 0 0",
         {{-far, far}}}};  // the piece count and records after the header, the places of the pieces built
    for (auto [records, places] : cases) {
        load("start.map", kSmallLevel);
        const std::string text = std::string("1 1000 600 0 0 0 ") + records;
        EXPECT_EQ(load("short.map", text.c_str()), "") << records;
        Places built;
        for (Object* o : objects().getObjects()) {
            built.emplace_back(o->getX(), o->getY());
        }
        EXPECT_EQ(built, places) << records;
        runFrames(2);
    }
}

TEST_F(MapLoading, MissingPictureLeavesPiecesWithoutImageAndSizeAndIsReportedOnce) {
    // The second name, read as UTF-8, once sent Allegro's message formatting into an endless loop;
    // as plain 8-bit text its bytes above 127 print as others.
    const std::pair<std::string, std::string> names[] = {{"nothing.bmp", "nothing.bmp"},
                                                         {"\xff\xb9\xb9\xb9\xb9\xb9\xb9\xb9", "y^^^^^^^"}};
    for (auto [name, shown] : names) {
        EXPECT_EQ(load("missing_picture.map", ("0 100 100 0 0 0 2\n" + name + " 0 0 0 0 0 0 0 0\n").c_str()),
                  "Failed to load bitmap image/object/" + shown);
        ASSERT_EQ(objects().getObjectCount(), 2);
        EXPECT_TRUE(!objects().getObjects()[1]->getImage() && objects().getObjects()[1]->getWidth() == 0);
    }
    // A header claiming 30000 x 30000 pixels makes Allegro ask for more memory than there is.
    std::string header("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x30\x75\0\0\x30\x75\0\0\x01\0\x18\0", 30);
    folder.writeFile("huge.bmp", header + std::string(24, '\0'));
    const std::string huge = folder.reachFrom("image/object", "huge.bmp");
    EXPECT_EQ(load("huge_picture.map", ("0 100 100 0 0 0 1 " + huge + " 0 0 0 0 0 0 0 0").c_str()),
              "Failed to load bitmap image/object/" + huge);
}

TEST(MapFile, ALevelIsRefusedOnlyByItsAreaWithASideOfZeroOrLessCountedAsOnePixel) {
    TestFolder folder;
    const std::pair<const char*, const char*> cases[] = {
        {"40000 600", nullptr},
        {"8192 8192", nullptr},
        {"8193 8192", "8193 x 8192"},
        {"1 67108865", "1 x 67108865"},
        {"67108865 0", "67108865 x 0"},
        {"0 0", nullptr},
        {"-40000 -40000", nullptr},
        {"-1 2147483647", "-1 x 2147483647"},
        {"65536 65536", "65536 x 65536"},
        {"99999999999 600", "2147483647 x 0"},  // beyond an int: the largest, and reading stops
    };  // the width and height written, the size the refusal names (null: the level is accepted)
    for (auto [size, refused] : cases) {
        const std::string path = folder.writeFile("level.map", std::string("1 ") + size + " 1 2 3 0");
        Grevan::MapFile file;
        EXPECT_EQ(file.read(path.c_str()), refused == nullptr) << size;
        EXPECT_EQ(file.getRefusal(), refused ? "Cannot load map " + path + ": the level area " + refused +
                                                   " is too large: at most 67108864 pixels"
                                             : "")
            << size;
    }
}

using WideLevel = CombatScene;

TEST_F(WideLevel, FarBeyond32768PixelsABodyWalksABulletFliesAndHitsAndTheCameraFollows) {
    const std::string floor = folder.reachFrom("image/object", "floor.bmp");
    const std::string level =
        "1 40000 600 40 60 80 1 " + floor + " 0 0 38500 " + std::to_string(kFloorTop) + " 0 0 0 0";
    game->loadMap(folder.writeFile("wide.map", level).c_str());
    ASSERT_EQ(map().getWidth(), 40000);
    me = addStandingPlayer(39000);
    game->setMainPlayer(me);
    me->show();
    me->moveRight(true);
    runFrames(30);
    me->moveRight(false);
    runFrames(20);
    EXPECT_GT(me->getX(), 39000);
    EXPECT_FALSE(me->isFree()) << "still on the floor";
    EXPECT_EQ(map().getClientX(), me->getCentralX() - 400);
    const int left = me->getX() - map().getClientX();
    const int top = me->getY() - map().getClientY();
    EXPECT_LT(GrevanTest::pixelsOf(buffer, makecol(40, 60, 80), left, top, left + 31, top + 47),
              32 * 48 * 3 / 4)
        << "the player's figure covers at least a quarter of his rectangle on the screen";
    Grevan::Player* target = addStandingPlayer(39400, "raider");
    Grevan::Gun* gun = arm<Grevan::Gun>(me, 0);
    me->aim(target->getX(), target->getY());
    ASSERT_TRUE(gun->fire(target->getX(), target->getY()));
    runFrames(8);
    EXPECT_EQ(target->getHealth(), 90) << "a hit on the top row";
}

}  // namespace

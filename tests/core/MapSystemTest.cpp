#include "core/MapSystem.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/WorldTestSupport.h"

using Grevan::MapSystem;

TEST(MapSystem, CameraCentresOnThePointAndThenKeepsWithinTheLevel) {
    struct Case {
        int levelWidth, levelHeight, clientWidth, clientHeight;
        int startX, startY, pointX, pointY;
        int clientX, clientY;
    } cases[] = {
        {2000, 600, 800, 600, 0, 0, 100, 300, 0, 0},
        {2000, 600, 800, 600, 0, 0, 1900, 300, 1200, 0},
        {2000, 600, 800, 600, 0, 0, 1000, 300, 600, 0},
        {2000, 600, 800, 600, 900, 0, 1000, 300, 600, 0},
        {2000, 2000, 800, 600, 0, 0, 1000, 1500, 600, 1200},
        {640, 480, 800, 600, 0, 0, 100, 100, -160, -120},  // narrower than the camera: clamp comes last
        // An odd width leaves a one-pixel dead zone between the two margins.
        {3000, 600, 801, 600, 0, 0, 1000, 300, 599, 0},
        {3000, 600, 801, 600, 599, 0, 1000, 300, 599, 0},
        {3000, 600, 801, 600, 599, 0, 999, 300, 599, 0},
        {3000, 600, 801, 600, 599, 0, 998, 300, 598, 0},
    };
    for (const Case& c : cases) {
        MapSystem map;
        map.initialize(c.levelWidth, c.levelHeight);
        map.setClientWidth(c.clientWidth);
        map.setClientHeight(c.clientHeight);
        map.setClientX(c.startX);
        map.setClientY(c.startY);
        map.moveClientTo(c.pointX, c.pointY);
        EXPECT_EQ(map.getClientX(), c.clientX)
            << "point " << c.pointX << " in a level " << c.levelWidth << " wide";
        EXPECT_EQ(map.getClientY(), c.clientY)
            << "point " << c.pointY << " in a level " << c.levelHeight << " high";
    }
}

TEST(MapSystem, PointsOnTheCamerasBorderAreOutsideIt) {
    MapSystem map;
    map.setClientWidth(800);
    map.setClientHeight(600);
    map.setClientX(100);
    map.setClientY(50);
    struct Case {
        int x, y;
        bool inside;
    } cases[] = {
        {100, 300, false}, {101, 300, true}, {899, 300, true}, {900, 300, false},
        {500, 50, false},  {500, 51, true},  {500, 649, true}, {500, 650, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(map.inClient(c.x, c.y), c.inside) << c.x << ", " << c.y;
    }
}

class MapSystemDrawing : public GrevanTest::HeadlessGameTest {};

TEST_F(MapSystemDrawing, FollowedObjectIsTrackedByItsTopLeftCorner) {
    map().initialize(3000, 600);
    map().setClientWidth(800);
    map().setClientHeight(600);
    map().moveClient();
    EXPECT_EQ(map().getClientX(), 0);
    std::unique_ptr<Grevan::Object> followed(GrevanTest::makeBlock(1000, 300, 200, 100));
    map().setFollowObject(followed.get());
    map().moveClient();
    EXPECT_EQ(map().getClientX(), 1000 - 400);
}

TEST_F(MapSystemDrawing, BackgroundIsItsColourOverTheWholeTarget) {
    map().setBackgroundColor(10, 20, 30);
    BITMAP* target = create_bitmap(80, 60);
    clear_to_color(target, makecol(255, 255, 255));
    map().draw(target);
    for (int y : {0, 59}) {
        for (int x : {0, 79}) {
            EXPECT_EQ(getpixel(target, x, y), makecol(10, 20, 30));
        }
    }
    destroy_bitmap(target);
}

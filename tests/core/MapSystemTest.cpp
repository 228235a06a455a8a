#include "core/MapSystem.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/TestSupport.h"

using Grevan::MapSystem;

namespace {

TEST(MapSystem, CameraCentresOnThePointAndThenKeepsWithinTheLevel) {
    struct Case {
        int levelWidth, levelHeight, clientWidth;
        int startX, pointX, pointY;
        int clientX, clientY;
    } cases[] = {
        {2000, 600, 800, 0, 100, 300, 0, 0},
        {2000, 600, 800, 0, 1900, 300, 1200, 0},
        {2000, 600, 800, 900, 1000, 300, 600, 0},
        {2000, 2000, 800, 0, 1000, 1500, 600, 1200},
        {640, 480, 800, 0, 100, 100, -160, -120},  // narrower than the camera: the clamp comes last
        // An odd width leaves a one-pixel dead zone between the two margins.
        {3000, 600, 801, 599, 1000, 300, 599, 0},
        {3000, 600, 801, 599, 998, 300, 598, 0},
    };
    for (const Case& c : cases) {
        MapSystem map;
        map.initialize(c.levelWidth, c.levelHeight);
        map.setClientWidth(c.clientWidth);
        map.setClientHeight(600);
        map.setClientX(c.startX);
        map.moveClientTo(c.pointX, c.pointY);
        EXPECT_EQ(map.getClientX(), c.clientX) << "point " << c.pointX << " in a level " << c.levelWidth;
        EXPECT_EQ(map.getClientY(), c.clientY) << "point " << c.pointY << " in a level " << c.levelHeight;
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
    } cases[] = {{100, 300, false}, {101, 300, true}, {899, 300, true}, {900, 300, false},
                 {500, 50, false},  {500, 649, true}, {500, 650, false}};
    for (const Case& c : cases) {
        EXPECT_EQ(map.inClient(c.x, c.y), c.inside) << c.x << ", " << c.y;
    }
}

TEST(MapSystem, FollowedObjectIsTrackedByItsTopLeftCorner) {
    MapSystem map;
    map.initialize(3000, 600);
    map.setClientWidth(800);
    map.setClientHeight(600);
    map.moveClient();
    EXPECT_EQ(map.getClientX(), 0) << "nothing to follow";
    std::unique_ptr<Grevan::Object> followed(GrevanTest::makeBlock(1000, 300, 200, 100));
    map.setFollowObject(followed.get());
    map.moveClient();
    EXPECT_EQ(map.getClientX(), 1000 - 400);
}

}  // namespace

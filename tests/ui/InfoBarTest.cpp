#include "ui/InfoBar.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <tuple>

#include "actors/Pistol.h"
#include "support/CombatScene.h"
#include "support/GuiFolder.h"

using Grevan::InfoBar;

namespace {

const int kWhite = 0xffffff;

// The status bar of a level with `me` as the main player.
class StatusBar : public CombatScene {
  protected:
    void SetUp() override {
        CombatScene::SetUp();
        game->setMainPlayer(me);
        gui.runInside([this] { bar.initialize(); });
        bar.show();
    }

    // Draws the bar onto a black screen; gives the pixels of the picture's colour on one row.
    int drawnOnRow(const char* picture, int y) {
        clear_to_color(buffer, 0);
        bar.draw(buffer);
        return GrevanTest::pixelsOf(buffer, GuiFolder::colourOf(picture), 0, y, 799, y);
    }

    GuiFolder gui;
    InfoBar bar;
};

TEST_F(StatusBar, BarsAreThePictureWidthTimesTheValueDividedBy100AndStayWithoutAMainPlayer) {
    const int healthRow = InfoBar::kHealthBarY + GuiFolder::kBarHeight / 2;
    const std::tuple<int, int, int, int> cases[] = {
        {50, 0, 100, 0}, {0, 100, 0, 200}, {1, 99, 2, 198}, {100, 25, 200, 50}, {150, 0, 200, 0}};
    for (auto [health, armour, healthPixels, armourPixels] : cases) {
        me->setHealth(health);
        me->setDefend(armour);
        EXPECT_EQ(drawnOnRow("defend", InfoBar::kArmourBarY + 1), armourPixels) << armour;
        EXPECT_EQ(drawnOnRow("blood", healthRow), healthPixels) << health;
    }
    EXPECT_EQ(getpixel(buffer, InfoBar::kBarX, healthRow), GuiFolder::colourOf("blood"));
    // The background is drawn at alpha 200 over what lies beneath: a darker grey than its own.
    EXPECT_EQ(getpixel(buffer, 5, 5), makecol(70, 70, 70));
    // Without a main player the figures last stored stay; a hidden bar draws nothing.
    game->setMainPlayer(nullptr);
    me->setHealth(50);
    EXPECT_EQ(drawnOnRow("blood", healthRow), 200);
    bar.setBlood(10);
    EXPECT_EQ(drawnOnRow("blood", healthRow), 20);
    bar.hide();
    drawnOnRow("blood", 0);
    EXPECT_EQ(GrevanTest::pixelsOf(buffer, 0), 800 * 600);
}

// Without a weapon in hand: no cartridges, no number, and an icon only for a selected slot; with
// the pistol, a full magazine is a row of cartridges 8 pixels apart and the reserve is written.
TEST_F(StatusBar, CartridgesAndTheReserveShowOnlyForAWeaponInHandAndTheIconForASelectedSlot) {
    const std::pair<int, const char*> cases[] = {
        {0, nullptr}, {1, "pistol"}, {2, "gun"}, {3, "grenade"}, {4, nullptr}};
    for (auto [equipment, icon] : cases) {
        me->setEquipment(equipment);
        EXPECT_EQ(drawnOnRow("bullet", InfoBar::kCartridgeY + 1), 0);
        EXPECT_EQ(getpixel(buffer, InfoBar::kIconX, InfoBar::kIconY), icon ? GuiFolder::colourOf(icon) : 0)
            << "equipment " << equipment;
        EXPECT_EQ(GrevanTest::pixelsOf(buffer, kWhite, 380, 20, 799, 99), 0);
    }
    auto* pistol = arm<Grevan::Pistol>(me, 40, 1);
    while (pistol->getBulletCurrent() > 12) {
        pistol->reduceBullet();
    }
    EXPECT_EQ(drawnOnRow("bullet", InfoBar::kCartridgeY + 1), 12 * GuiFolder::kBulletWidth);
    for (int i = 0; i < 12; i++) {
        EXPECT_EQ(getpixel(buffer, 392 + 8 * i, InfoBar::kCartridgeY + 1), GuiFolder::colourOf("bullet"))
            << i;
    }
    EXPECT_GT(GrevanTest::pixelsOf(buffer, kWhite, 392, 30, 407, 37), 0) << "the reserve, 40, at (392, 30)";
}

TEST_F(StatusBar, TheOlderRefreshDividesFirstAndSpacesCartridges25Apart) {
    bar.setBlood(99);
    bar.setDefend(100);
    bar.setBullet(3);
    bar.setEquipment(1);
    bar.refresh();
    BITMAP* canvas = bar.getCanvas();
    EXPECT_EQ(GrevanTest::pixelsOf(canvas, GuiFolder::colourOf("blood")), 0) << "99 / 100 is 0";
    EXPECT_EQ(GrevanTest::pixelsOf(canvas, GuiFolder::colourOf("defend")),
              GuiFolder::kBarWidth * GuiFolder::kBarHeight);
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(getpixel(canvas, 392 + 25 * i, 66), GuiFolder::colourOf("bullet")) << "cartridge " << i;
    }
    EXPECT_EQ(getpixel(canvas, 5, 5), GuiFolder::colourOf("back")) << "copied opaquely";
    EXPECT_EQ(getpixel(canvas, 5, 50), makecol(255, 0, 255)) << "cleared to magenta beneath";
    EXPECT_EQ(getpixel(canvas, InfoBar::kIconX, InfoBar::kIconY), GuiFolder::colourOf("pistol"));
}

using StatusBarDeathTest = HeadlessGame;

TEST_F(StatusBarDeathTest, AnyMissingPictureEndsTheProcessWithStatus1AndTheMessage) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* missing : {"back", "defend", "blood", "gun", "pistol", "grenade", "bullet"}) {
        GuiFolder gui(missing);
        auto initialize = [] {
            dup2(2, 1);  // headless, the message goes to standard output; the check reads standard error
            InfoBar().initialize();
        };
        EXPECT_EXIT(gui.runInside(initialize), testing::ExitedWithCode(1), "Missing gui picture files\\.")
            << missing;
    }
}

}  // namespace

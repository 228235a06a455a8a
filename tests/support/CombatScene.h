#pragma once

#include <string>

#include "actors/Player.h"
#include "actors/Weapon.h"
#include "support/HeadlessGame.h"
#include "support/TestFolder.h"
#include "support/TestSupport.h"

// A headless game for combat tests on a level 1000 x 400 whose floor's top is at y 380,
// optionally with a wall 20 wide and 100 high standing on the floor at x 500, and `me`, a
// soldier standing on the floor at x 100. Each test starts on the level without the wall.
class CombatScene : public HeadlessGame {
  protected:
    static constexpr int kFloorTop = 380;
    static constexpr int kWallLeft = 500;
    static constexpr int kWallTop = 280;

    void SetUp() override;

    // Loads the level afresh, with a new `me`.
    void loadLevel(bool withWall);
    // A player of the role added to the game with its left side at x, standing on the floor.
    Grevan::Player* addStandingPlayer(int x, const std::string& role = "soldier");
    // Adds the player to the game with its left side at x and lets it land on the floor.
    void standOnFloor(Grevan::Player* p, int x);
    // A new weapon of the holder's in the slot, in hand, with a full magazine and `spare` rounds.
    template <typename Kind>
    Kind* arm(Grevan::Player* holder, int spare, int slot = 1) {
        Kind* w = new Kind(holder);
        holder->setWeapon(slot, std::unique_ptr<Kind>(w));
        holder->setEquipment(slot);
        w->addBullets(w->getMagazineSize());
        runUntilReady(w);
        w->addBullets(spare);
        return w;
    }
    // Runs the weapon's own timing until it can fire.
    void runUntilReady(Grevan::Weapon* w);
    // Puts the player at (x, y) at once, keeping the block map in step.
    void teleport(Grevan::Player* p, int x, int y);
    // How many times `sound` was played while `body` ran: the sound is taken out of the table
    // first, so that each play prints its not-found line.
    template <typename Body>
    int playsOf(const std::string& sound, Body body) {
        game->getSoundSystem().removeSound(sound);
        std::string printed = GrevanTest::printedBy(body);
        std::string line = "sound not found: %s" + sound + "\n";
        int count = 0;
        for (size_t at = printed.find(line); at != std::string::npos; at = printed.find(line, at + 1)) {
            count++;
        }
        return count;
    }

    TestFolder folder;
    Grevan::Player* me = nullptr;
};

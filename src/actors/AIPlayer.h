#pragma once

#include <string>

#include "actors/Player.h"

namespace Grevan {

// An opponent. Every 20 frames (after a grace of 50) it decides: shoot at the main player when
// it sees him, start walking towards one end of the map, or do nothing; and it stops any walk
// within one own width of either end of the platform it stands on. A script can take it over;
// it then only carries out the script's orders.
class AIPlayer : public Player {
  public:
    static constexpr int kFirstThought = 50;  // frames of grace after creation
    static constexpr int kThinkEvery = 20;    // frames between decisions
    static constexpr int kShotSpread = 120;   // pixels; a shot lands up to half of it off the target

    AIPlayer(const std::string& name, const std::string& role);
    ~AIPlayer() override = default;

    bool isUnderControl() const { return underControl; }
    void setControlMode(bool controlled) { underControl = controlled; }
    int getThinkTimer() const { return thinkTimer; }

    void move() override;
    // A walking opponent points its weapon straight ahead.
    void doMove(Facing facing) override;
    void doFire() override;

  private:
    void decide();
    void shootIfInSight(Player* target);
    // Towards the left end of the map on an even draw, the right end on an odd one.
    void walkTowardsAnEnd();
    // Stops the walk near either end of the board, whichever way it goes.
    void guardEdges(Object* board);

    int thinkTimer = kFirstThought;  // frames until the next decision
    bool underControl = false;
};

}  // namespace Grevan

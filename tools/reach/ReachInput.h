#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Grevan {
class Player;
}

// What a player holds down during one frame: at most one direction key, and the jump key.
struct ReachInput {
    enum Direction : std::uint8_t { NONE, LEFT, RIGHT };

    Direction direction = NONE;
    bool jump = false;

    bool operator==(const ReachInput& other) const {
        return direction == other.direction && jump == other.jump;
    }

    // Hands the player the key changes from `held` to this input the way the game's input
    // handling does: as presses and releases, left first, then right, then jump. The order
    // matters: releasing a direction stops the player, which also lets go of a held jump.
    void applyTo(Grevan::Player& player, ReachInput held) const;

    // One letter a frame, for people and files: '.' nothing, 'l' left, 'r' right, upper case
    // with the jump key held ('J' alone).
    char letter() const;
};

// A sequence of inputs, one per frame from the start.
using ReachWitness = std::vector<ReachInput>;

std::string witnessText(const ReachWitness& witness);

#include "ReachInput.h"

#include "actors/Player.h"

void ReachInput::applyTo(Grevan::Player& player, ReachInput held) const {
    const bool leftHeld = held.direction == LEFT;
    const bool rightHeld = held.direction == RIGHT;
    if (leftHeld != (direction == LEFT)) {
        player.moveLeft(!leftHeld);
    }
    if (rightHeld != (direction == RIGHT)) {
        player.moveRight(!rightHeld);
    }
    if (held.jump != jump) {
        player.jump(jump);
    }
}

char ReachInput::letter() const {
    static const char kPlain[] = {'.', 'l', 'r'};
    static const char kJumping[] = {'J', 'L', 'R'};
    return jump ? kJumping[direction] : kPlain[direction];
}

std::string witnessText(const ReachWitness& witness) {
    std::string text;
    text.reserve(witness.size());
    for (const ReachInput& input : witness) {
        text += input.letter();
    }
    return text;
}

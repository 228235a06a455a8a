#pragma once

namespace Grevan {

// What a character is doing. act() accepts 0 to PLAYER_LAST_STATE; only the three named states
// change the animation, the others are stored and leave it alone.
enum PlayerState : int { PLAYER_STAND = 0, PLAYER_WALK = 1, PLAYER_DEAD = 6, PLAYER_LAST_STATE = 7 };

// The kinds of scripted order. Any other type is stored and ignored, and stays on until stopped.
enum PlayerActionType : int { ACTION_MOVE_TO = 1 };

// A scripted order, such as walking to a point. For ACTION_MOVE_TO only x counts: the walk ends
// when the body's x position is within one pixel of it.
struct PlayerAction {
    int type = 0;
    int x = 0;
    int y = 0;
};

}  // namespace Grevan

#pragma once

// What a change of the keyboard or the mouse asks of the main player. The values travel in
// events and are reported by number when unknown, so they are fixed.
enum EventAction : int {
    ACTION_FIRE = 0,         // left mouse button
    ACTION_MOUSE_RIGHT = 1,  // right mouse button; no effect
    ACTION_JUMP = 2,         // W
    ACTION_MOVE_LEFT = 3,    // A
    ACTION_MOVE_RIGHT = 4,   // D
    ACTION_RELOAD = 5,       // R
    ACTION_KEY_S = 6,        // no effect
    ACTION_KEY_SHIFT = 7,    // left Shift; no effect
    ACTION_SLOT_1 = 8,       // 1; WeaponSlot says which slot each number key takes in hand
    ACTION_SLOT_2 = 9,       // 2
    ACTION_SLOT_3 = 10,      // 3
    ACTION_SLOT_4 = 11,      // 4
    ACTION_KEY_Q = 12,       // no effect
    ACTION_KEY_B = 13,       // reported as unknown
    ACTION_KEY_M = 14,       // reported as unknown
    ACTION_MOUSE_MOVE = 15,
};

// One edge of input: a key or button going down or up, or the mouse moving.
struct Event {
    int playerId = 0;  // the player it acts on
    EventAction action = ACTION_FIRE;
    bool pressed = false;
    // For ACTION_MOUSE_MOVE the new mouse position, x * 65536 + y; else 0.
    int data = 0;
};

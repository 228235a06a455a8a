#pragma once

#include <memory>

#include "core/Event.h"

namespace Grevan {

class Player;
class Weapon;

// What each of a player's weapon slots is for: the one place that ties a slot's number to the
// weapon scripts give for it, the key that takes it in hand and the status bar's icon of it.
// Slot 0 holds no weapon of its own: equipment 0 is empty hands.
struct WeaponSlot {
    int number;
    EventAction key;  // the input action of the number key that takes this slot in hand
    // The weapon addPlayerWeapon puts into the empty slot; null for slot 0.
    std::unique_ptr<Weapon> (*makeWeapon)(Player* holder);
    const char* icon;  // the status bar's picture of the slot in hand, image/gui/<icon>.bmp; or null

    // The slot of that number; null for a number no slot has.
    static const WeaponSlot* numbered(int number);
    // The number of the slot that key takes in hand; 0, empty hands, for an action that takes none.
    static int selectedBy(EventAction key);
};

}  // namespace Grevan

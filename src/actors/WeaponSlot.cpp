#include "actors/WeaponSlot.h"

#include <iterator>

#include "actors/Grenade.h"
#include "actors/Gun.h"
#include "actors/Pistol.h"
#include "actors/Player.h"

namespace Grevan {

namespace {

template <typename Kind>
std::unique_ptr<Weapon> make(Player* holder) {
    return std::make_unique<Kind>(holder);
}

// The number keys take the gun first and empty hands third.
// number, key, weapon, icon
const WeaponSlot kWeaponSlots[] = {
    {0, ACTION_SLOT_3, nullptr, nullptr},
    {1, ACTION_SLOT_2, make<Pistol>, "pistol"},
    {2, ACTION_SLOT_1, make<Gun>, "gun"},
    {3, ACTION_SLOT_4, make<Grenade>, "grenade"},
};
static_assert(std::size(kWeaponSlots) == Player::kSlotCount, "one row for every slot");

}  // namespace

const WeaponSlot* WeaponSlot::numbered(int number) {
    for (const WeaponSlot& slot : kWeaponSlots) {
        if (slot.number == number) {
            return &slot;
        }
    }
    return nullptr;
}

int WeaponSlot::selectedBy(EventAction key) {
    for (const WeaponSlot& slot : kWeaponSlots) {
        if (slot.key == key) {
            return slot.number;
        }
    }
    return 0;
}

}  // namespace Grevan

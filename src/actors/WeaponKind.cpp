#include "actors/WeaponKind.h"

namespace Grevan {

// picture, magazine, fire delay, reload time, recoil, shot sound, reload sound
const WeaponKind WeaponKind::kPistol = {"pistol", 20, 15, 60, 20, "pistol", "pistol_reload"};
const WeaponKind WeaponKind::kGun = {"gun", 30, 7, 100, 30, "gun", "gun_reload"};
const WeaponKind WeaponKind::kGrenade = {"grenade", 1, 1, 50, 0, nullptr, nullptr};

}  // namespace Grevan

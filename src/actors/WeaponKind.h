#pragma once

namespace Grevan {

// What tells the kinds of weapon apart, one row per kind. The behaviour they share lives in
// Weapon, and for the two that fire bullets in Firearm; the figures live here.
struct WeaponKind {
    const char* picture;      // image/role/<holder's role>/<picture>.bmp
    int magazineSize;         // rounds
    int fireDelay;            // frames from one shot to the next
    int reloadTime;           // frames
    int recoil;               // the sight's kick by a shot of the main player's, pixels per frame; 0 none
    const char* shotSound;    // null for a silent shot
    const char* reloadSound;  // null for a silent reload

    static const WeaponKind kPistol;
    static const WeaponKind kGun;
    static const WeaponKind kGrenade;
};

}  // namespace Grevan

#include "actors/Pistol.h"

namespace Grevan {

namespace {
const int kMagazine = 20;    // rounds
const int kFireDelay = 15;   // frames
const int kReloadTime = 60;  // frames
const int kRecoil = 20;      // pixels per frame of sight kick
}  // namespace

Pistol::Pistol(Player* holder) : Weapon(holder, "pistol") {
    setCapacity(kMagazine, kFireDelay, kReloadTime);
}

bool Pistol::fire(int x, int y) {
    return fireBullet(x, y, kRecoil, "pistol");
}

void Pistol::reload() {
    reloadWithSound("pistol_reload");
}

}  // namespace Grevan

#include "actors/Gun.h"

namespace Grevan {

namespace {
const int kMagazine = 30;     // rounds
const int kFireDelay = 7;     // frames
const int kReloadTime = 100;  // frames
const int kRecoil = 30;       // pixels per frame of sight kick
}  // namespace

Gun::Gun(Player* holder) : Weapon(holder, "gun") {
    setCapacity(kMagazine, kFireDelay, kReloadTime);
}

bool Gun::fire(int x, int y) {
    return fireBullet(x, y, kRecoil, "gun");
}

void Gun::reload() {
    reloadWithSound("gun_reload");
}

}  // namespace Grevan

#include "actors/Weapon.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <string>

#include "actors/Player.h"

namespace Grevan {

namespace {
const float kFullTurnRadians = 6.2831852f;
const int kFullTurn = 256;  // Allegro angle units
const int kHalfTurn = 128;
const int kQuarterTurn = 64;
}  // namespace

Weapon::Weapon(Player* holder, const WeaponKind& weaponKind) : kind(weaponKind), owner(holder) {
    assert(holder);
    std::string path = "image/role/" + holder->getRole() + "/" + kind.picture + ".bmp";
    loadImage(path.c_str());
}

void Weapon::setTarget(int dx, int dy) {
    // Straight above or below (or on) the centre the quotient is infinite: a quarter turn,
    // which points down in both cases; that is kept.
    int a = kQuarterTurn;
    if (dx != 0) {
        float quotient = static_cast<float>(dy) / static_cast<float>(dx);
        a = static_cast<int>(std::fabs(std::atan(quotient) / kFullTurnRadians * kFullTurn));
    }
    if (dx < 0 && dy >= 0) {
        angle = a + kHalfTurn;
    } else if (dx < 0) {
        angle = kHalfTurn - a;
    } else if (dx > 0 && dy > 0) {
        angle = kFullTurn - a;
    } else {
        angle = a;
    }
}

void Weapon::addBullets(int n) {
    const long long reserve = static_cast<long long>(bulletSpare) + n;
    bulletSpare = static_cast<int>(std::clamp<long long>(reserve, -kReserveLimit, kReserveLimit));
}

void Weapon::reduceBullet() {
    bulletCurrent = std::max(0, bulletCurrent - 1);
}

void Weapon::draw(BITMAP* target, int cx, int cy) {
    if (!image) {
        return;
    }
    // However turned, the picture stays within this distance of its centre.
    const int reach = image->w + image->h;
    if (cx + reach < 0 || cx - reach >= target->w || cy + reach < 0 || cy - reach >= target->h) {
        return;
    }
    const int left = cx - width / 2;
    const int top = cy - height / 2;
    // Pointing into the left half, the picture is mirrored rather than drawn upside down.
    const bool mirrored = !(angle < kQuarterTurn + 1 || angle > kFullTurn - kQuarterTurn - 1);
    // What rotate_sprite and rotate_sprite_v_flip do, in fixed point by multiplication: their left
    // shift of the corner is undefined for a weapon partly beyond the screen's left or top edge.
    target->vtable->pivot_scaled_sprite_flip(target, image, left * 0x10000 + image->w * 0x8000,
                                             top * 0x10000 + image->h * 0x8000, image->w * 0x8000,
                                             image->h * 0x8000, itofix(angle), 0x10000, mirrored);
}

void Weapon::move() {
    if (timer < 1) {
        // An automatic reload, e.g. after rounds were given to an empty weapon.
        if (bulletCurrent == 0 && bulletSpare > 0 && !reloading) {
            reload();
        }
    } else {
        timer--;
        if (timer == 0 && reloading) {
            reloading = false;
            int n = std::min(bulletSpare, kind.magazineSize - bulletCurrent);
            bulletCurrent += n;
            bulletSpare -= n;
        }
    }
    Object::move();
}

void Weapon::reload() {
    reloading = true;
    timer = kind.reloadTime;
}

bool Weapon::fire(int, int) {
    if (bulletCurrent == 0) {
        if (bulletSpare > 0) {
            reload();
        }
        return false;
    }
    if (timer >= 1) {
        return false;
    }
    reduceBullet();
    timer = kind.fireDelay;
    if (bulletCurrent == 0 && bulletSpare > 0) {
        reload();
    }
    return true;
}

void Weapon::muzzlePoint(int x, int y, int* muzzleX, int* muzzleY) const {
    int cx = owner->getCentralX();
    int cy = owner->getCentralY();
    Vector v = Vector(static_cast<float>(x - cx), static_cast<float>(y - cy)).normalized();
    v *= static_cast<float>(width / 2);
    *muzzleX = static_cast<int>(v.x + static_cast<float>(cx));
    *muzzleY = static_cast<int>(v.y + static_cast<float>(cy));
}

}  // namespace Grevan

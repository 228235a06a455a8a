#pragma once

#include "actors/WeaponKind.h"
#include "world/Object.h"

namespace Grevan {

class Player;

// A weapon a player holds in a slot: a magazine and a reserve of rounds, a cool-down between
// shots, a reload delay and a barrel angle towards the aimed point. It is never registered:
// its owner draws it at its centre, aims it and calls move every frame for its timing.
class Weapon : public Object {
  public:
    // Loads "image/role/<owner's role>/<the kind's picture>.bmp". Without its picture the weapon
    // is drawn as nothing and fires from its owner's centre.
    Weapon(Player* owner, const WeaponKind& kind);

    // The picture centred on (cx, cy), turned by the angle and mirrored when pointing left.
    void draw(BITMAP* target, int cx, int cy) override;
    // One frame of cool-down and reload.
    void move() override;
    virtual void reload();
    // Fires at the world point (x, y); true when a round was spent.
    virtual bool fire(int x, int y);

    // Aims at the offset (dx, dy) from the owner's centre, y pointing up.
    void setTarget(int dx, int dy);
    // Allegro angle units: 256 a full turn, 0 right, 64 down, 128 left, 192 up.
    int getAngle() const { return angle; }

    static const int kReserveLimit = 1000000000;  // rounds

    int getBulletCurrent() const { return bulletCurrent; }
    int getBulletTotal() const { return bulletSpare + bulletCurrent; }
    void reduceBullet();
    // Scripts may hand out absurd counts: the reserve stops at kReserveLimit rounds either way,
    // so that it and the total with the magazine stay exact.
    void addBullets(int n);
    int getReloadTime() const { return kind.reloadTime; }
    int getFireDelay() const { return kind.fireDelay; }
    int getMagazineSize() const { return kind.magazineSize; }
    int getTimer() const { return timer; }
    bool isReloading() const { return reloading; }
    Player* getOwner() const { return owner; }
    void setOwner(Player* p) { owner = p; }

  protected:
    // Where a shot at (x, y) leaves the barrel: half the picture's width out from the
    // owner's centre, towards the target.
    void muzzlePoint(int x, int y, int* muzzleX, int* muzzleY) const;

    const WeaponKind& kind;
    int angle = 0;
    int bulletCurrent = 0;
    int bulletSpare = 0;
    int timer = 0;  // frames left of the cool-down or reload; 0 is ready
    bool reloading = false;
    Player* owner;  // not owned
};

}  // namespace Grevan

#include "ui/InfoBar.h"

#include <cstdlib>
#include <initializer_list>

#include "actors/Player.h"
#include "actors/Weapon.h"
#include "core/Game.h"

namespace Grevan {

namespace {
const int kOldCartridgeStep = 25;  // refresh's spacing and row
const int kOldCartridgeY = 66;
}  // namespace

InfoBar::~InfoBar() {
    release();
}

void InfoBar::initialize() {
    blood = 0;
    defend = 0;
    equipment = 0;
    bullet = 0;
    release();
    backImage = load_bitmap("./image/gui/back.bmp", nullptr);
    defendImage = load_bitmap("./image/gui/defend.bmp", nullptr);
    bloodImage = load_bitmap("./image/gui/blood.bmp", nullptr);
    gunImage = load_bitmap("./image/gui/gun.bmp", nullptr);
    pistolImage = load_bitmap("./image/gui/pistol.bmp", nullptr);
    grenadeImage = load_bitmap("./image/gui/grenade.bmp", nullptr);
    bulletImage = load_bitmap("./image/gui/bullet.bmp", nullptr);
    for (BITMAP* image :
         {backImage, defendImage, bloodImage, gunImage, pistolImage, grenadeImage, bulletImage}) {
        if (!image) {
            allegro_message("Missing gui picture files.");
            exit(1);
        }
    }
    const MapSystem& view = Game::getInstance()->getMapSystem();
    canvas = create_bitmap(view.getClientWidth(), view.getClientHeight());
    visible = false;
}

void InfoBar::release() {
    for (BITMAP** image : {&bloodImage, &defendImage, &gunImage, &pistolImage, &bulletImage, &backImage,
                           &grenadeImage, &canvas}) {
        if (*image) {
            destroy_bitmap(*image);
            *image = nullptr;
        }
    }
}

InfoBar& InfoBar::show() {
    visible = true;
    return *this;
}

InfoBar& InfoBar::hide() {
    visible = false;
    return *this;
}

void InfoBar::draw(BITMAP* target) {
    if (!visible) {
        return;
    }
    Weapon* w = nullptr;
    // Without a main player the figures last stored stay on screen.
    if (Player* p = Game::getInstance()->getMainPlayer()) {
        blood = p->getHealth();
        defend = p->getDefend();
        equipment = p->getEquipment();
        w = p->getCurrentWeapon();
        if (w) {
            bullet = w->getBulletCurrent();
            backup = w->getBulletTotal() - w->getBulletCurrent();
        }
    }
    set_trans_blender(0, 0, 0, 200);
    draw_trans_sprite(target, backImage, 0, 0);
    // Multiplied before dividing, so every point of health shows.
    blit(bloodImage, target, 0, 0, kBarX, kHealthBarY, defendImage->w * blood / 100, defendImage->h);
    blit(defendImage, target, 0, 0, kBarX, kArmourBarY, defendImage->w * defend / 100, defendImage->h);
    if (w) {
        textprintf_ex(target, font, kReserveX, kReserveY, makecol(255, 255, 255), kClearTextBackground, "%d",
                      backup);
        for (int i = 0; i < bullet; i++) {
            draw_sprite(target, bulletImage, kCartridgeX + kCartridgeStep * i, kCartridgeY);
        }
    }
    if (BITMAP* icon = equipmentIcon()) {
        draw_sprite(target, icon, kIconX, kIconY);
    }
}

void InfoBar::refresh() {
    refresh(canvas);
}

void InfoBar::refresh(BITMAP* target) {
    clear_to_color(target, makecol(255, 0, 255));
    blit(backImage, target, 0, 0, 0, 0, backImage->w, backImage->h);
    // Divided first: a bar is either empty or, from 100 up, full.
    blit(bloodImage, target, 0, 0, kBarX, kHealthBarY, defendImage->w * (blood / 100), defendImage->h);
    blit(defendImage, target, 0, 0, kBarX, kArmourBarY, defendImage->w * (defend / 100), defendImage->h);
    for (int i = 0; i < bullet; i++) {
        draw_sprite(target, bulletImage, kCartridgeX + kOldCartridgeStep * i, kOldCartridgeY);
    }
    if (BITMAP* icon = equipmentIcon()) {
        draw_sprite(target, icon, kIconX, kIconY);
    }
}

BITMAP* InfoBar::equipmentIcon() const {
    switch (equipment) {
        case 1:
            return pistolImage;
        case 2:
            return gunImage;
        case 3:
            return grenadeImage;
        default:
            return nullptr;
    }
}

}  // namespace Grevan

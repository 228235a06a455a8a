#include "ui/InfoBar.h"

#include <cstdlib>
#include <initializer_list>
#include <string>

#include "actors/Player.h"
#include "actors/Weapon.h"
#include "actors/WeaponSlot.h"
#include "core/Game.h"

namespace Grevan {

namespace {

const int kOldCartridgeStep = 25;  // refresh's spacing and row
const int kOldCartridgeY = 66;

// The picture "./image/gui/<name>.bmp"; without it the game cannot show its state and ends.
OwnedBitmap loadGuiPicture(const std::string& name) {
    OwnedBitmap picture(load_bitmap(("./image/gui/" + name + ".bmp").c_str(), nullptr));
    if (!picture) {
        allegro_message("Missing gui picture files.");
        exit(1);
    }
    return picture;
}

}  // namespace

void InfoBar::initialize() {
    blood = 0;
    defend = 0;
    equipment = 0;
    bullet = 0;
    release();
    backImage = loadGuiPicture("back");
    defendImage = loadGuiPicture("defend");
    bloodImage = loadGuiPicture("blood");
    bulletImage = loadGuiPicture("bullet");
    for (int number = 0; number < Player::kSlotCount; number++) {
        const WeaponSlot* slot = WeaponSlot::numbered(number);
        if (slot && slot->icon) {
            slotIcons[number] = loadGuiPicture(slot->icon);
        }
    }
    const MapSystem& view = Game::getInstance()->getMapSystem();
    canvas.reset(create_bitmap(view.getClientWidth(), view.getClientHeight()));
    visible = false;
}

void InfoBar::release() {
    for (OwnedBitmap* picture : {&bloodImage, &defendImage, &bulletImage, &backImage, &canvas}) {
        picture->reset();
    }
    for (OwnedBitmap& icon : slotIcons) {
        icon.reset();
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
    draw_trans_sprite(target, backImage.get(), 0, 0);
    // Multiplied before dividing, so every point of health shows.
    blit(bloodImage.get(), target, 0, 0, kBarX, kHealthBarY, defendImage->w * blood / 100, defendImage->h);
    blit(defendImage.get(), target, 0, 0, kBarX, kArmourBarY, defendImage->w * defend / 100, defendImage->h);
    if (w) {
        textprintf_ex(target, font, kReserveX, kReserveY, makecol(255, 255, 255), kClearTextBackground, "%d",
                      backup);
        for (int i = 0; i < bullet; i++) {
            draw_sprite(target, bulletImage.get(), kCartridgeX + kCartridgeStep * i, kCartridgeY);
        }
    }
    if (BITMAP* icon = equipmentIcon()) {
        draw_sprite(target, icon, kIconX, kIconY);
    }
}

void InfoBar::refresh() {
    refresh(canvas.get());
}

void InfoBar::refresh(BITMAP* target) {
    clear_to_color(target, makecol(255, 0, 255));
    blit(backImage.get(), target, 0, 0, 0, 0, backImage->w, backImage->h);
    // Divided first: a bar is either empty or, from 100 up, full.
    blit(bloodImage.get(), target, 0, 0, kBarX, kHealthBarY, defendImage->w * (blood / 100), defendImage->h);
    blit(defendImage.get(), target, 0, 0, kBarX, kArmourBarY, defendImage->w * (defend / 100),
         defendImage->h);
    for (int i = 0; i < bullet; i++) {
        draw_sprite(target, bulletImage.get(), kCartridgeX + kOldCartridgeStep * i, kOldCartridgeY);
    }
    if (BITMAP* icon = equipmentIcon()) {
        draw_sprite(target, icon, kIconX, kIconY);
    }
}

BITMAP* InfoBar::equipmentIcon() const {
    const WeaponSlot* slot = WeaponSlot::numbered(equipment);
    return slot ? slotIcons[slot->number].get() : nullptr;
}

}  // namespace Grevan

#pragma once

#include <allegro.h>

#include "actors/Player.h"
#include "world/OwnedBitmap.h"

namespace Grevan {

// The head-up display in the screen's top-left corner: a half-transparent background, a health
// bar and an armour bar, the icon of the weapon in hand, the magazine as a row of cartridges and
// the number of reserve rounds. It follows the main player by itself in every draw.
class InfoBar {
  public:
    static constexpr int kBarX = 128;  // screen pixels, the left end of both bars
    static constexpr int kHealthBarY = 52;
    static constexpr int kArmourBarY = 70;
    static constexpr int kIconX = 275;
    static constexpr int kIconY = 15;
    static constexpr int kReserveX = 392;
    static constexpr int kReserveY = 30;
    static constexpr int kCartridgeX = 392;
    static constexpr int kCartridgeY = 50;
    static constexpr int kCartridgeStep = 8;

    InfoBar() = default;
    InfoBar(const InfoBar&) = delete;
    InfoBar& operator=(const InfoBar&) = delete;

    // Loads the pictures from "./image/gui/": the background, the bars, the cartridge and the
    // icons WeaponSlot names. The game cannot show its state without them: a missing one ends
    // the process with status 1 after "Missing gui picture files.".
    void initialize();
    // Frees the pictures and the canvas; must run while Allegro is still up.
    void release();

    InfoBar& show();
    InfoBar& hide();
    bool isVisible() const { return visible; }
    void setBlood(int b) { blood = b; }
    void setDefend(int d) { defend = d; }
    void setEquipment(int e) { equipment = e; }
    void setBullet(int b) { bullet = b; }
    void setBackup(int b) { backup = b; }

    // Takes the main player's figures, when there is one, and draws the bar onto target.
    void draw(BITMAP* target);
    // The older rendering onto the canvas, kept as it was: the background copied opaquely, bars
    // that are either empty or full, wider-spaced cartridges lower down, no reserve number. It
    // reads no player.
    void refresh();
    void refresh(BITMAP* target);
    BITMAP* getCanvas() const { return canvas.get(); }

  private:
    // The icon of the selected slot; null for empty hands and for a number that is no slot's.
    BITMAP* equipmentIcon() const;

    OwnedBitmap bloodImage;
    OwnedBitmap defendImage;  // its size is also the size of the health bar
    OwnedBitmap bulletImage;
    OwnedBitmap backImage;
    OwnedBitmap slotIcons[Player::kSlotCount];  // by slot number; null for a slot without one
    int blood = 0;                              // health shown, 0 to 100
    int defend = 0;                             // armour shown, 0 to 100
    int equipment = 0;                          // the selected slot
    int bullet = 0;                             // rounds in the magazine
    int backup = 0;                             // rounds outside the magazine
    OwnedBitmap canvas;                         // the map view's size, for refresh
    bool visible = false;
};

}  // namespace Grevan

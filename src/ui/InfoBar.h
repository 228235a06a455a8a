#pragma once

#include <allegro.h>

namespace Grevan {

// The head-up display in the screen's top-left corner: a half-transparent background, a health
// bar and an armour bar, the icon of the weapon in hand, the magazine as a row of cartridges and
// the number of reserve rounds. It follows the main player by itself in every draw.
class InfoBar {
  public:
    static const int kBarX = 128;  // screen pixels, the left end of both bars
    static const int kHealthBarY = 52;
    static const int kArmourBarY = 70;
    static const int kIconX = 275;
    static const int kIconY = 15;
    static const int kReserveX = 392;
    static const int kReserveY = 30;
    static const int kCartridgeX = 392;
    static const int kCartridgeY = 50;
    static const int kCartridgeStep = 8;

    InfoBar() = default;
    ~InfoBar();
    InfoBar(const InfoBar&) = delete;
    InfoBar& operator=(const InfoBar&) = delete;

    // Loads the seven pictures from "./image/gui/". The game cannot show its state without
    // them: a missing one ends the process with status 1 after "Missing gui picture files.".
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
    BITMAP* getCanvas() const { return canvas; }

  private:
    // The icon of the selected slot (1 pistol, 2 gun, 3 grenade); null for any other value.
    BITMAP* equipmentIcon() const;

    BITMAP* bloodImage = nullptr;
    BITMAP* defendImage = nullptr;  // its size is also the size of the health bar
    BITMAP* gunImage = nullptr;
    BITMAP* pistolImage = nullptr;
    BITMAP* bulletImage = nullptr;
    BITMAP* backImage = nullptr;
    BITMAP* grenadeImage = nullptr;
    int blood = 0;             // health shown, 0 to 100
    int defend = 0;            // armour shown, 0 to 100
    int equipment = 0;         // selected slot: 0 none, 1 pistol, 2 gun, 3 grenade
    int bullet = 0;            // rounds in the magazine
    int backup = 0;            // rounds outside the magazine
    BITMAP* canvas = nullptr;  // the map view's size, for refresh
    bool visible = false;
};

}  // namespace Grevan

#pragma once

#include <string>

#include "support/TestFolder.h"

// A folder holding the status bar's seven pictures and the robot's under image/gui/, each a
// plain colour of its own (sizes and colours below), for tests that must know what they draw.
// While an Inside lives, it is the working directory.
class GuiFolder {
  public:
    static const int kBackWidth = 500;  // magenta but for a grey band at its top
    static const int kBackBand = 10;
    static const int kBarWidth = 200;  // blood and defend
    static const int kBarHeight = 10;
    static const int kIconWidth = 30;  // gun, pistol, grenade
    static const int kIconHeight = 20;
    static const int kBulletWidth = 4;
    static const int kBulletHeight = 12;
    static const int kRobotWidth = 40;
    static const int kRobotHeight = 50;

    // Colours, as makecol(r, g, b) gives them at 32 bits.
    static int back();
    static int blood();
    static int defend();
    static int gun();
    static int pistol();
    static int grenade();
    static int bullet();
    static int robot();

    // Writes every picture but the one named (a file name such as "gun.bmp"; empty for none).
    explicit GuiFolder(const std::string& missing = "");

    // Makes the folder the working directory, and restores the old one when it ends.
    class Inside {
      public:
        explicit Inside(const GuiFolder& folder);
        ~Inside();
        Inside(const Inside&) = delete;
        Inside& operator=(const Inside&) = delete;

      private:
        std::string previous;
    };

    const std::string& getPath() const { return folder.getPath(); }

  private:
    void writePicture(const std::string& name, int width, int height, int colour, const std::string& missing);

    TestFolder folder;
};

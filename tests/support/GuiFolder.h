#pragma once

#include <functional>
#include <string>

#include "support/TestFolder.h"

// A folder holding the status bar's seven pictures and the robot's ("ib") under image/gui/, each
// a plain colour of its own, for tests that must know what they draw. The bars are kBarWidth x
// kBarHeight, a cartridge is kBulletWidth wide, and back.bmp is magenta but for a band at its top.
class GuiFolder {
  public:
    static const int kBarWidth = 200;
    static const int kBarHeight = 10;
    static const int kBulletWidth = 4;

    // The colour of the picture of that name ("blood"), as makecol(r, g, b) gives it at 32 bits.
    static int colourOf(const std::string& picture);

    // Writes every picture but the one named (empty for none).
    explicit GuiFolder(const std::string& missing = "");

    // Runs body with the folder as the working directory, where the game looks for image/gui/.
    void runInside(const std::function<void()>& body) const;

  private:
    TestFolder folder;
};

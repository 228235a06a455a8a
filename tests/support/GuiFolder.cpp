#include "support/GuiFolder.h"

#include <allegro.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

int GuiFolder::back() {
    return makecol(90, 90, 90);
}
int GuiFolder::blood() {
    return makecol(200, 0, 0);
}
int GuiFolder::defend() {
    return makecol(0, 0, 200);
}
int GuiFolder::gun() {
    return makecol(0, 200, 0);
}
int GuiFolder::pistol() {
    return makecol(0, 200, 200);
}
int GuiFolder::grenade() {
    return makecol(200, 200, 0);
}
int GuiFolder::bullet() {
    return makecol(250, 180, 20);
}
int GuiFolder::robot() {
    return makecol(30, 140, 250);
}

GuiFolder::GuiFolder(const std::string& missing) {
    std::filesystem::create_directories(folder.getPath() + "/image/gui");
    writePicture("back.bmp", kBackWidth, 100, back(), missing);
    writePicture("blood.bmp", kBarWidth, kBarHeight, blood(), missing);
    writePicture("defend.bmp", kBarWidth, kBarHeight, defend(), missing);
    writePicture("gun.bmp", kIconWidth, kIconHeight, gun(), missing);
    writePicture("pistol.bmp", kIconWidth, kIconHeight, pistol(), missing);
    writePicture("grenade.bmp", kIconWidth, kIconHeight, grenade(), missing);
    writePicture("bullet.bmp", kBulletWidth, kBulletHeight, bullet(), missing);
    writePicture("ib.bmp", kRobotWidth, kRobotHeight, robot(), missing);
}

void GuiFolder::writePicture(const std::string& name, int width, int height, int colour,
                             const std::string& missing) {
    if (name == missing) {
        return;
    }
    BITMAP* picture = create_bitmap(width, height);
    clear_to_color(picture, colour);
    if (name == "back.bmp") {
        // Only a band is opaque, so the bars and icons below show in their own colours.
        rectfill(picture, 0, kBackBand, width - 1, height - 1, makecol(255, 0, 255));
    }
    save_bitmap((folder.getPath() + "/image/gui/" + name).c_str(), picture, nullptr);
    destroy_bitmap(picture);
}

GuiFolder::Inside::Inside(const GuiFolder& folder) : previous(std::filesystem::current_path().string()) {
    if (chdir(folder.getPath().c_str()) != 0) {
        throw std::runtime_error("cannot enter " + folder.getPath());
    }
}

GuiFolder::Inside::~Inside() {
    if (chdir(previous.c_str()) != 0) {
        perror("cannot return to the working directory");
    }
}

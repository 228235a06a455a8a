#include "support/GuiFolder.h"

#include <allegro.h>

#include <filesystem>
#include <stdexcept>

namespace {

struct Picture {
    std::string name;
    int width, height, red, green, blue;
};

const Picture kPictures[] = {
    {"back", 500, 100, 90, 90, 90},
    {"blood", GuiFolder::kBarWidth, GuiFolder::kBarHeight, 200, 0, 0},
    {"defend", GuiFolder::kBarWidth, GuiFolder::kBarHeight, 0, 0, 200},
    {"gun", 30, 20, 0, 200, 0},
    {"pistol", 30, 20, 0, 200, 200},
    {"grenade", 30, 20, 200, 200, 0},
    {"bullet", GuiFolder::kBulletWidth, 12, 250, 180, 20},
    {"ib", 40, 50, 30, 140, 250},
};

const int kBackBand = 10;  // the opaque rows of back.bmp

}  // namespace

int GuiFolder::colourOf(const std::string& picture) {
    for (const Picture& p : kPictures) {
        if (p.name == picture) {
            return makecol(p.red, p.green, p.blue);
        }
    }
    throw std::invalid_argument("no gui picture " + picture);
}

GuiFolder::GuiFolder(const std::string& missing) {
    std::filesystem::create_directories(folder.getPath() + "/image/gui");
    for (const Picture& p : kPictures) {
        if (p.name == missing) {
            continue;
        }
        BITMAP* picture = create_bitmap(p.width, p.height);
        clear_to_color(picture, makecol(p.red, p.green, p.blue));
        if (p.name == "back") {
            // Only a band is opaque, so the bars and icons below show in their own colours.
            rectfill(picture, 0, kBackBand, p.width - 1, p.height - 1, makecol(255, 0, 255));
        }
        save_bitmap((folder.getPath() + "/image/gui/" + p.name + ".bmp").c_str(), picture, nullptr);
        destroy_bitmap(picture);
    }
}

void GuiFolder::runInside(const std::function<void()>& body) const {
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(folder.getPath());
    body();
    std::filesystem::current_path(previous);
}

#include <allegro.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "IconArt.h"
#include "PngWriter.h"

namespace {

// Writes FOLDER/hicolor/SIZExSIZE/apps/grevan.png, the place the icon theme looks it up.
bool writeIcon(const std::filesystem::path& folder, BITMAP* picture) {
    const std::string size = std::to_string(picture->w);
    const std::filesystem::path apps = folder / "hicolor" / (size + "x" + size) / "apps";
    std::error_code ignored;
    std::filesystem::create_directories(apps, ignored);
    const std::string path = (apps / "grevan.png").string();
    std::string error;
    if (!writePng(picture, path, error, PNG_MASK_TRANSPARENT)) {
        fprintf(stderr, "icongen: cannot write %s: %s\n", path.c_str(), error.c_str());
        return false;
    }
    return true;
}

}  // namespace

// icongen FOLDER: draws the game's icon at every size a desktop asks for and writes it as an icon
// theme under FOLDER. Runs without a display.
int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: icongen FOLDER\n");
        return 2;
    }
    if (install_allegro(SYSTEM_NONE, &errno, atexit) != 0) {
        fprintf(stderr, "icongen: Allegro did not start\n");
        return 1;
    }
    set_color_depth(32);
    const int scaleFactors[] = {2, 4};
    int failures = 0;
    for (int size : Grevan::IconArt::kDrawnSizes) {
        Grevan::Painter painter(size, size);
        Grevan::IconArt::icon(painter);
        failures += !writeIcon(argv[1], painter.bitmap());
        if (size != Grevan::IconArt::kScaledFrom) {
            continue;
        }
        for (int factor : scaleFactors) {
            BITMAP* larger = create_bitmap(size * factor, size * factor);
            stretch_blit(painter.bitmap(), larger, 0, 0, size, size, 0, 0, larger->w, larger->h);
            failures += !writeIcon(argv[1], larger);
            destroy_bitmap(larger);
        }
    }
    return failures ? 1 : 0;
}

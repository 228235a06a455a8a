#include <allegro.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "FortressArt.h"
#include "GuiArt.h"
#include "HarbourArt.h"
#include "LevelArt.h"
#include "PresentArt.h"
#include "RobotArt.h"

namespace {

// Every group of pictures and the folder under the data folder it belongs in.
struct Group {
    const char* folder;
    const std::vector<Grevan::ArtPiece>& pieces;
};

// Draws and writes one group; returns how many of its files could not be written.
int writeGroup(const std::filesystem::path& data, const Group& group) {
    const std::filesystem::path folder = data / group.folder;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    int failures = 0;
    for (const Grevan::ArtPiece& piece : group.pieces) {
        Grevan::Painter painter(piece.width, piece.height);
        piece.draw(painter);
        const std::string path = (folder / piece.file).string();
        if (painter.save(path)) {
            printf("wrote %s\n", path.c_str());
        } else {
            fprintf(stderr, "artgen: cannot write %s\n", path.c_str());
            ++failures;
        }
    }
    return failures;
}

}  // namespace

// artgen DATA_FOLDER: draws every generated picture and writes it under DATA_FOLDER: level
// pieces of every level and gift boxes into image/object/, the status bar and the guide robot into
// image/gui/. Runs without a display.
int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: artgen DATA_FOLDER\n");
        return 2;
    }
    if (install_allegro(SYSTEM_NONE, &errno, atexit) != 0) {
        fprintf(stderr, "artgen: Allegro did not start\n");
        return 1;
    }
    set_color_depth(32);
    const Group groups[] = {
        {"image/object", Grevan::LevelArt::pieces()},   {"image/object", Grevan::PresentArt::pieces()},
        {"image/object", Grevan::HarbourArt::pieces()}, {"image/object", Grevan::FortressArt::pieces()},
        {"image/gui", Grevan::GuiArt::pieces()},        {"image/gui", Grevan::RobotArt::pieces()},
    };
    int failures = 0;
    for (const Group& group : groups) {
        failures += writeGroup(argv[1], group);
    }
    return failures ? 1 : 0;
}

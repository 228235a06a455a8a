#include <allegro.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "LevelArt.h"

// artgen DATA_FOLDER: draws every generated picture and writes it under DATA_FOLDER, level pieces
// into image/object/. Runs without a display.
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
    const std::filesystem::path folder = std::filesystem::path(argv[1]) / "image" / "object";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    int failures = 0;
    for (const Grevan::LevelArt::Piece& piece : Grevan::LevelArt::pieces()) {
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
    return failures ? 1 : 0;
}

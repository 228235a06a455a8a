// mapedit [MAP]          edits a map file, or a new level without one
// mapedit --list MAP     prints the pieces the game reads from the map, one a line
// mapedit --help | --version
// Run from the game's working directory (data/), so that pictures and maps resolve as in the
// game. Exit status: 0 done, 1 no window could be opened or the map is refused, 2 wrong usage.

#include <allegro.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

#include "EditorWindow.h"
#include "core/MapFile.h"

namespace {

const char* const kUsage = "usage: mapedit [MAP] | mapedit --list MAP | mapedit --help | mapedit --version";

// The game's binary lies beside this one when both are built into one folder; installed, it lies
// where the install rules put it, relative to this one.
std::string findGame() {
    char self[PATH_MAX] = {};
    const ssize_t length = readlink("/proc/self/exe", self, sizeof(self) - 1);
    const std::string path =
        length > 0 ? std::string(self, static_cast<size_t>(length)) : std::string("./mapedit");
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const std::string beside = folder + "grevan";
    return access(beside.c_str(), X_OK) == 0 ? beside : folder + GREVAN_INSTALLED_GAME;
}

int listPieces(const char* path) {
    Grevan::MapFile file;
    if (!file.read(path)) {
        std::cerr << file.getRefusal() << "\n";
        return 1;
    }
    std::cout << file.getWidth() << " x " << file.getHeight() << ", " << file.getPieces().size()
              << " pieces\n";
    for (const Grevan::MapPiece& piece : file.getPieces()) {
        std::cout << piece.image << " " << (piece.solid ? "solid" : "decoration") << " " << piece.x << " "
                  << piece.y << "\n";
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::cout << kUsage << "\n";
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::cout << "mapedit (Grevan) " << GREVAN_VERSION << "\n";
        return 0;
    }
    if (argc == 3 && std::strcmp(argv[1], "--list") == 0) {
        return listPieces(argv[2]);
    }
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
        std::cerr << kUsage << "\n";
        return 2;
    }
    // Names from files reach Allegro's text functions: read as plain bytes, never as UTF-8.
    set_uformat(U_ASCII);
    if (allegro_init() != 0 || install_timer() != 0 || install_keyboard() != 0 || install_mouse() < 0) {
        std::cerr << "mapedit: cannot start Allegro: " << allegro_error << "\n";
        return 1;
    }
    set_color_depth(32);
    if (set_gfx_mode(GFX_AUTODETECT_WINDOWED, EditorWindow::kWidth, EditorWindow::kHeight, 0, 0) != 0) {
        std::cerr << "mapedit: cannot open a window of " << EditorWindow::kWidth << " x "
                  << EditorWindow::kHeight << ": " << allegro_error << "\n";
        return 1;
    }
    show_mouse(screen);
    {
        EditorWindow window(findGame());
        window.run(argc == 2 ? argv[1] : "");
    }
    allegro_exit();
    return 0;
}

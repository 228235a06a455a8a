// mapview [--outlines] [--camera X,Y] MAP PICTURE.png
// Renders a map file, run from the game's working directory (data/) so that the piece pictures
// resolve as in the game, to a PNG: the whole level, or with --camera the one 800 x 600 screen
// whose top-left corner is at X,Y of the level (each within 2^30 pixels of 0, as pieces are).
// --outlines draws the collision outlines of the solid pieces over them. --help prints the usage
// line and --version the version, both on standard output. Exit status: 0 written, 1 the map is
// refused, the level has no area to draw or the picture cannot be written, 2 wrong usage.

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "MapPreview.h"
#include "PngWriter.h"
#include "core/MapFile.h"

namespace {

const char* const kUsage = "usage: mapview [--outlines] [--camera X,Y] MAP PICTURE.png";

struct Options {
    bool outlines = false;
    bool camera = false;
    int cameraX = 0;
    int cameraY = 0;
    std::vector<std::string> operands;
};

// A camera as far out as pieces go at most: beyond, a screen shows only the background, and the
// distance from a piece to the camera would no longer fit in an int.
bool isWithinReach(int coordinate) {
    return -Grevan::MapFile::kFarthestPiece <= coordinate && coordinate <= Grevan::MapFile::kFarthestPiece;
}

bool readCamera(const std::string& text, Options& options) {
    char comma = 0;
    char rest = 0;
    options.camera = true;
    return std::sscanf(text.c_str(), "%d%c%d%c", &options.cameraX, &comma, &options.cameraY, &rest) == 3 &&
           comma == ',' && isWithinReach(options.cameraX) && isWithinReach(options.cameraY);
}

bool readOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--outlines" && !options.outlines) {
            options.outlines = true;
        } else if (argument == "--camera" && !options.camera && i + 1 < argc) {
            if (!readCamera(argv[++i], options)) {
                return false;
            }
        } else if (argument.size() > 1 && argument[0] == '-') {
            return false;
        } else {
            options.operands.push_back(argument);
        }
    }
    return options.operands.size() == 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string(argv[1]) == "--help") {
        std::cout << kUsage << "\n";
        return 0;
    }
    if (argc == 2 && std::string(argv[1]) == "--version") {
        std::cout << "mapview (Grevan) " << GREVAN_VERSION << "\n";
        return 0;
    }
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::cerr << kUsage << "\n";
        return 2;
    }
    const std::string& mapPath = options.operands[0];
    Grevan::MapFile check;
    if (!check.read(mapPath.c_str())) {
        std::cerr << check.getRefusal() << "\n";
        return 1;
    }
    // The preview plays nothing; OpenAL's null driver keeps the sound system quiet about it.
    setenv("ALSOFT_DRIVERS", "null", 0);
    Grevan::Game game(Grevan::StartMode::HEADLESS);
    game.loadMap(mapPath.c_str());
    const int width = game.getMapSystem().getWidth();
    const int height = game.getMapSystem().getHeight();
    if (!options.camera && (width <= 0 || height <= 0)) {
        std::cerr << "mapview: the level " << width << " x " << height << " has no area to draw\n";
        return 1;
    }
    MapPreview preview(game);
    BitmapPtr picture = options.camera
                            ? preview.renderScreen(options.cameraX, options.cameraY, options.outlines)
                            : preview.renderLevel(options.outlines);
    std::string error;
    if (!picture) {
        std::cerr << "mapview: no memory for a picture of that size\n";
        return 1;
    }
    if (!writePng(picture.get(), options.operands[1], error)) {
        std::cerr << "mapview: cannot write " << options.operands[1] << ": " << error << "\n";
        return 1;
    }
    return 0;
}

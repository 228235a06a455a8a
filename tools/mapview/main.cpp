// mapview [--outlines] [--camera X,Y] [--reach X,Y [--must-reach X,Y]...] MAP PICTURE.png
// Renders a map file, run from the game's working directory (data/) so that the piece pictures
// resolve as in the game, to a PNG: the whole level, or with --camera the one 800 x 600 screen
// whose top-left corner is at X,Y of the level (each within 2^30 pixels of 0, as pieces are).
// --outlines draws the collision outlines of the solid pieces over them. --reach draws which
// surfaces a player whose feet start at X,Y can stand on, and prints one line per span;
// --must-reach names a point whose surface (the first at or below it) must be among them.
// --help prints the usage line and --version the version, both on standard output.
// Exit status: 0 written, 1 the map is refused, the level has no area to draw or the picture
// cannot be written, 2 wrong usage, 3 written but a point that must be reached is not.

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "MapPreview.h"
#include "PngWriter.h"
#include "ReachAnalysis.h"
#include "ReachOverlay.h"
#include "core/MapFile.h"

namespace {

const char* const kUsage =
    "usage: mapview [--outlines] [--camera X,Y] [--reach X,Y [--must-reach X,Y]...] MAP PICTURE.png";

struct Options {
    bool outlines = false;
    bool camera = false;
    int cameraX = 0;
    int cameraY = 0;
    bool reach = false;
    ReachPoint start;
    std::vector<ReachPoint> mustReach;
    std::vector<std::string> operands;
};

// A camera as far out as pieces go at most: beyond, a screen shows only the background, and the
// distance from a piece to the camera would no longer fit in an int.
bool isWithinReach(int coordinate) {
    return -Grevan::MapFile::kFarthestPiece <= coordinate && coordinate <= Grevan::MapFile::kFarthestPiece;
}

// X,Y: two integers within 2^30 of 0.
bool readPoint(const std::string& text, int& x, int& y) {
    char comma = 0;
    char rest = 0;
    return std::sscanf(text.c_str(), "%d%c%d%c", &x, &comma, &y, &rest) == 3 && comma == ',' &&
           isWithinReach(x) && isWithinReach(y);
}

bool readOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--outlines" && !options.outlines) {
            options.outlines = true;
        } else if (argument == "--camera" && !options.camera && i + 1 < argc) {
            options.camera = true;
            if (!readPoint(argv[++i], options.cameraX, options.cameraY)) {
                return false;
            }
        } else if (argument == "--reach" && !options.reach && i + 1 < argc) {
            options.reach = true;
            if (!readPoint(argv[++i], options.start.x, options.start.y)) {
                return false;
            }
        } else if (argument == "--must-reach" && i + 1 < argc) {
            options.mustReach.emplace_back();
            if (!readPoint(argv[++i], options.mustReach.back().x, options.mustReach.back().y)) {
                return false;
            }
        } else if (argument.size() > 1 && argument[0] == '-') {
            return false;
        } else {
            options.operands.push_back(argument);
        }
    }
    return options.operands.size() == 2 && (options.reach || options.mustReach.empty());
}

// One line per span on standard output; the search's limits, when it met them, on standard error.
void printSpans(const ReachResult& result) {
    for (const ReachSpanResult& found : result.spans) {
        const ReachSpan& span = found.span;
        std::printf("%s %d-%d %d", found.reachable ? "reachable" : "unreachable", span.left, span.right,
                    span.y);
        if (found.reachable) {
            std::printf(" frames %zu", found.witness.size());
        }
        std::printf("\n");
    }
    if (result.bounded) {
        std::fprintf(stderr, "mapview: the search stopped at its limit after %d states and %d frames\n",
                     result.states, result.frames);
    }
}

// Names each point whose surface cannot be reached; true when there is none.
bool checkMustReach(const Options& options, const ReachLevel& level, const ReachResult& result) {
    bool allReached = true;
    for (const ReachPoint& point : options.mustReach) {
        const int span = level.spanBelow(point.x, point.y);
        if (span < 0 || !result.spans[static_cast<std::size_t>(span)].reachable) {
            std::fprintf(stderr, "mapview: %d,%d cannot be reached from %d,%d%s\n", point.x, point.y,
                         options.start.x, options.start.y, span < 0 ? ": there is no surface below it" : "");
            allReached = false;
        }
    }
    return allReached;
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
    bool reached = true;
    if (options.reach) {
        const ReachLevel level = ReachLevel::of(game);
        ReachAnalysis analysis;
        const ReachResult result = analysis.run(level, options.start);
        drawReachOverlay(picture.get(), result, options.camera ? options.cameraX : 0,
                         options.camera ? options.cameraY : 0, 1.0f);
        printSpans(result);
        reached = checkMustReach(options, level, result);
    }
    if (!writePng(picture.get(), options.operands[1], error)) {
        std::cerr << "mapview: cannot write " << options.operands[1] << ": " << error << "\n";
        return 1;
    }
    return reached ? 0 : 3;
}

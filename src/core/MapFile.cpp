#include "core/MapFile.h"

#include <fstream>
#include <utility>

namespace Grevan {

namespace {

enum PieceKind { PIECE_SOLID = 0, PIECE_DECORATION = 1 };

bool isWithin(long long value, long long low, long long high) {
    return low <= value && value <= high;
}

}  // namespace

bool MapFile::refuse(const std::string& path, const std::string& reason) {
    refusal = "Cannot load map " + path + ": " + reason;
    pieces.clear();
    return false;
}

std::string MapFile::checkHeader(int pieceCount) const {
    const std::string size = std::to_string(width) + " x " + std::to_string(height);
    if (!isWithin(width, 1, kMaximumLevelSize) || !isWithin(height, 1, kMaximumLevelSize)) {
        return "the level size " + size + " is outside 1 to " + std::to_string(kMaximumLevelSize);
    }
    if (static_cast<long long>(width) * height > kMaximumLevelArea) {
        return "the level size " + size + " is over " + std::to_string(kMaximumLevelArea) + " pixels";
    }
    if (!isWithin(red, 0, 255) || !isWithin(green, 0, 255) || !isWithin(blue, 0, 255)) {
        return "the background colour " + std::to_string(red) + " " + std::to_string(green) + " " +
               std::to_string(blue) + " is outside 0 to 255";
    }
    if (!isWithin(pieceCount, 0, kMaximumPieceCount)) {
        return "the piece count " + std::to_string(pieceCount) + " is outside 0 to " +
               std::to_string(kMaximumPieceCount);
    }
    return "";
}

bool MapFile::read(const char* path) {
    refusal.clear();
    pieces.clear();
    std::ifstream in(path);
    if (!in.is_open()) {
        return refuse(path, "the file cannot be opened");
    }
    int ignored = 0;
    int pieceCount = 0;
    if (!(in >> ignored >> width >> height >> red >> green >> blue >> pieceCount)) {
        return refuse(path,
                      "its header (an integer, width, height, red, green, blue, piece count) is incomplete");
    }
    const std::string problem = checkHeader(pieceCount);
    if (!problem.empty()) {
        return refuse(path, problem);
    }

    for (int i = 0; i < pieceCount; ++i) {
        MapPiece piece;
        int kind = 0;
        int unused[4];
        if (!(in >> piece.image >> piece.layer >> kind >> piece.x >> piece.y >> unused[0] >> unused[1] >>
              unused[2] >> unused[3])) {
            // A short or malformed file says nothing; the pieces before the bad record stay, and
            // no stale values are repeated into phantom pieces.
            break;
        }
        if (kind != PIECE_SOLID && kind != PIECE_DECORATION) {
            continue;
        }
        if (!isWithin(piece.x, -kMaximumCoordinate, kMaximumCoordinate) ||
            !isWithin(piece.y, -kMaximumCoordinate, kMaximumCoordinate)) {
            return refuse(path, "piece " + std::to_string(i + 1) + " lies at " + std::to_string(piece.x) +
                                    ", " + std::to_string(piece.y) + ", beyond " +
                                    std::to_string(kMaximumCoordinate) + " pixels");
        }
        piece.solid = kind == PIECE_SOLID;
        pieces.push_back(std::move(piece));
    }
    return true;
}

}  // namespace Grevan

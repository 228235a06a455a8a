#include "core/MapFile.h"

#include <algorithm>
#include <fstream>

namespace Grevan {

namespace {

enum PieceKind { PIECE_SOLID = 0, PIECE_DECORATION = 1 };

}  // namespace

bool MapFile::refuse(const std::string& path, const std::string& reason) {
    refusal = "Cannot load map " + path + ": " + reason;
    pieces.clear();
    return false;
}

int MapFile::withinReach(long long coordinate) {
    return static_cast<int>(std::clamp<long long>(coordinate, -kFarthestPiece, kFarthestPiece));
}

std::string MapFile::checkSize(int width, int height, long long pieceCount) {
    // Each side is below 2^31, so their product taken in 64 bits cannot overflow.
    const long long area = static_cast<long long>(std::max(width, 1)) * std::max(height, 1);
    if (area > kMaximumLevelArea) {
        return "the level area " + std::to_string(width) + " x " + std::to_string(height) +
               " is too large: at most " + std::to_string(kMaximumLevelArea) + " pixels";
    }
    if (pieceCount > kMaximumPieceCount) {
        return "the piece count " + std::to_string(pieceCount) + " is too large: at most " +
               std::to_string(kMaximumPieceCount);
    }
    return "";
}

bool MapFile::read(const char* path) {
    refusal.clear();
    pieces.clear();
    leadingNumber = width = height = red = green = blue = 0;
    std::ifstream in(path);
    if (!in.is_open()) {
        return refuse(path, "the file cannot be opened");
    }
    int pieceCount = 0;
    in >> leadingNumber >> width >> height >> red >> green >> blue >> pieceCount;
    const std::string problem = checkSize(width, height, pieceCount);
    if (!problem.empty()) {
        return refuse(path, problem);
    }

    // Declared once for all records: once the stream fails, each record left is the last one again.
    MapPiece piece;
    int kind = 0;
    for (int i = 0; i < pieceCount; ++i) {
        in >> piece.image >> piece.layer >> kind >> piece.x >> piece.y >> piece.ignored[0] >>
            piece.ignored[1] >> piece.ignored[2] >> piece.ignored[3];
        if (kind != PIECE_SOLID && kind != PIECE_DECORATION) {
            continue;
        }
        pieces.push_back(piece);
        MapPiece& placed = pieces.back();
        placed.solid = kind == PIECE_SOLID;
        placed.x = withinReach(piece.x);
        placed.y = withinReach(piece.y);
    }
    return true;
}

}  // namespace Grevan

#pragma once

#include <array>
#include <string>
#include <vector>

namespace Grevan {

// One piece of scenery as a map file places it.
struct MapPiece {
    std::string image;  // file name under "image/object/", with its extension
    int layer = 0;
    bool solid = false;  // solid pieces collide; the others are decoration
    int x = 0;           // top-left corner, level pixels
    int y = 0;
    // The record's last four numbers: the game ignores them, and an editor writes them back as read.
    std::array<int, 4> ignored{};
};

// A map file, read and checked in full before the level it describes replaces the current one.
//
// The format is whitespace-separated decimal integers and words: an ignored integer, the level's
// width and height, the background's red, green and blue, the piece count N, then N records of
// nine fields: image name, layer, kind (0 solid, 1 decoration, anything else skipped), x, y and
// four ignored integers. Every field is read with formatted stream input, which also decides
// what a number too large for an int becomes (the nearest int, after which nothing more is read).
class MapFile {
  public:
    // The bounds that keep a level within memory. The area bounds the block map, a bitmap of the
    // level's size, and the collision grid, whose cells grow with either side; a side of 0 or
    // less counts as one pixel, so that a level without area cannot be endless the other way.
    static constexpr long long kMaximumLevelArea = 1LL << 26;  // pixels
    static constexpr int kMaximumPieceCount = 100000;
    // Pieces farther away are placed at this distance: nothing reaches or sees them either way,
    // and the world's pixel arithmetic on them stays within an int.
    static constexpr int kFarthestPiece = 1 << 30;  // pixels, either sign

    // Why a level of this size and piece count would be refused, as the end of the refusal line
    // ("the level area ..."), or empty when it is accepted.
    static std::string checkSize(int width, int height, long long pieceCount);
    // The coordinate brought within kFarthestPiece of the origin.
    static int withinReach(long long coordinate);

    // False when the file is refused: it cannot be opened, or its level area or piece count
    // would exhaust memory. Anything else is accepted quietly: fields that cannot be read keep
    // the values they had (0 before the first record), so a file that promises more records
    // than it holds repeats its last record for each missing one.
    bool read(const char* path);
    // Why the file was refused, as one line for standard output.
    const std::string& getRefusal() const { return refusal; }

    // The file's first number, which the game ignores.
    int getLeadingNumber() const { return leadingNumber; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int getRed() const { return red; }
    int getGreen() const { return green; }
    int getBlue() const { return blue; }
    // The pieces to build, in file order, without the skipped records.
    const std::vector<MapPiece>& getPieces() const { return pieces; }

  private:
    bool refuse(const std::string& path, const std::string& reason);

    int leadingNumber = 0;
    int width = 0;
    int height = 0;
    int red = 0;
    int green = 0;
    int blue = 0;
    std::vector<MapPiece> pieces;
    std::string refusal;
};

}  // namespace Grevan

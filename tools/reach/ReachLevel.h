#pragma once

#include <algorithm>
#include <vector>

namespace Grevan {
class Game;
}

// A solid piece of the level: its top-left corner and size, level pixels.
struct ReachPiece {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// A point of the level, pixels.
struct ReachPoint {
    int x = 0;
    int y = 0;
};

// A stretch of the top edge of a solid piece, where a player may stand: pixels left to right
// (both included) of row y. The player's feet rest on that row.
struct ReachSpan {
    int left = 0;
    int right = 0;
    int y = 0;
};

// The level as the reach analysis sees it: its size and its solid pieces, and the surfaces
// they offer. Built from plain figures, so that an editor can hand over its pieces as they are.
class ReachLevel {
  public:
    static constexpr int kSpanWidth = 25;  // pixels at most

    ReachLevel(int width, int height, std::vector<ReachPiece> solids);
    // The solid pieces of the level the game has loaded, in the order the map built them;
    // characters, gift boxes and whatever else falls are left out.
    static ReachLevel of(Grevan::Game& game);

    int getWidth() const { return width; }
    int getHeight() const { return height; }
    const std::vector<ReachPiece>& getSolids() const { return solids; }
    // The top edges of the solid pieces where no other solid piece lies on them, cut into spans
    // of at most kSpanWidth pixels, piece by piece in the order of the pieces.
    const std::vector<ReachSpan>& getSpans() const { return spans; }
    // The span a thing dropped at (x, y) comes to rest on: the first surface at or below the
    // point that holds x; -1 when there is none.
    int spanBelow(int x, int y) const;
    // Calls back with each span of row feetY that shares a pixel with left to right.
    template <typename Visit>
    void forSpansUnder(int left, int right, int feetY, Visit visit) const {
        auto row = firstRowFrom(feetY);
        if (row == rows.end() || row->y != feetY) {
            return;
        }
        for (int index : row->spans) {
            const ReachSpan& span = spans[index];
            if (span.left <= right && left <= span.right) {
                visit(index);
            }
        }
    }
    // The lowest bottom edge of any solid piece: a body below it can never land again.
    int getLowestBottom() const { return lowestBottom; }

  private:
    void cutSurfaces();
    void addSpans(int left, int right, int y);

    int width;
    int height;
    std::vector<ReachPiece> solids;
    std::vector<ReachSpan> spans;
    // Span indices by their row, rows top to bottom: a search looks a row up after nearly every
    // frame it plays, where a sorted vector is quicker than a tree.
    struct Row {
        int y;
        std::vector<int> spans;
    };
    std::vector<Row>::const_iterator firstRowFrom(int y) const {
        return std::lower_bound(rows.begin(), rows.end(), y,
                                [](const Row& row, int at) { return row.y < at; });
    }
    std::vector<Row> rows;
    int lowestBottom;
};

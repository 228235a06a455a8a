#include "ReachLevel.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "core/Game.h"
#include "world/RealBody.h"

ReachLevel::ReachLevel(int levelWidth, int levelHeight, std::vector<ReachPiece> solidPieces)
    : width(levelWidth), height(levelHeight), solids(std::move(solidPieces)), lowestBottom(INT_MIN) {
    for (const ReachPiece& piece : solids) {
        lowestBottom = std::max(lowestBottom, piece.y + piece.height);
    }
    cutSurfaces();
}

ReachLevel ReachLevel::of(Grevan::Game& game) {
    std::vector<ReachPiece> solids;
    for (Grevan::Object* o : game.getObjectSystem().getObjects()) {
        if (o->isCollidable() && !dynamic_cast<Grevan::RealBody*>(o)) {
            solids.push_back(ReachPiece{o->getX(), o->getY(), o->getWidth(), o->getHeight()});
        }
    }
    Grevan::MapSystem& map = game.getMapSystem();
    return ReachLevel(map.getWidth(), map.getHeight(), std::move(solids));
}

void ReachLevel::cutSurfaces() {
    for (const ReachPiece& piece : solids) {
        if (piece.width <= 0 || piece.height <= 0) {
            continue;
        }
        // The stretches of the row just above the top edge that other pieces fill, in order.
        std::vector<std::pair<int, int>> buried;
        for (const ReachPiece& other : solids) {
            if (&other != &piece && other.y <= piece.y - 1 && piece.y - 1 < other.y + other.height) {
                buried.emplace_back(other.x, other.x + other.width - 1);
            }
        }
        std::sort(buried.begin(), buried.end());
        int left = piece.x;
        const int right = piece.x + piece.width - 1;
        for (const auto& [from, to] : buried) {
            if (from > left) {
                addSpans(left, std::min(from - 1, right), piece.y);
            }
            left = std::max(left, to + 1);
        }
        addSpans(left, right, piece.y);
    }
}

void ReachLevel::addSpans(int left, int right, int y) {
    for (int from = left; from <= right; from += kSpanWidth) {
        auto row = rows.begin() + (firstRowFrom(y) - rows.begin());
        if (row == rows.end() || row->y != y) {
            row = rows.insert(row, Row{y, {}});
        }
        row->spans.push_back(static_cast<int>(spans.size()));
        spans.push_back(ReachSpan{from, std::min(right, from + kSpanWidth - 1), y});
    }
}

int ReachLevel::spanBelow(int x, int y) const {
    for (auto row = firstRowFrom(y); row != rows.end(); ++row) {
        for (int index : row->spans) {
            if (spans[index].left <= x && x <= spans[index].right) {
                return index;
            }
        }
    }
    return -1;
}

#include "MapEditor.h"

#include <algorithm>
#include <climits>

using Grevan::MapFile;
using Grevan::MapPiece;

int snapToGrid(int value, int step) {
    if (step <= 0) {
        return value;
    }
    const long long half = step / 2;
    const long long wide = value;
    const long long snapped = (wide >= 0 ? (wide + half) / step : -((-wide + half) / step)) * step;
    return static_cast<int>(std::clamp<long long>(snapped, INT_MIN, INT_MAX));
}

MapEditor::MapEditor(PictureSizes sizes) : sizes(std::move(sizes)) {}

void MapEditor::open(LevelDocument document, bool saved) {
    current = State{std::move(document), {}, nextRevision++};
    savedRevision = saved ? current.revision : 0;
    undoSteps.clear();
    redoSteps.clear();
    dragging = false;
}

bool MapEditor::isSelected(int index) const {
    return std::binary_search(current.selection.begin(), current.selection.end(), index);
}

void MapEditor::setLocked(bool solid, bool locked) {
    (solid ? solidLocked : decorationLocked) = locked;
    dropUnselectable();
}

void MapEditor::dropUnselectable() {
    std::vector<int>& selection = current.selection;
    selection.erase(std::remove_if(selection.begin(), selection.end(),
                                   [this](int index) { return !isSelectable(index); }),
                    selection.end());
}

bool MapEditor::isSelectable(int index) const {
    return !isLocked(current.document.pieces[static_cast<size_t>(index)].solid);
}

LevelRect MapEditor::rectangleOf(int index) const {
    const MapPiece& piece = current.document.pieces[static_cast<size_t>(index)];
    const LevelPoint size = sizes(piece.image);
    return {piece.x, piece.y, piece.x + size.x, piece.y + size.y};
}

std::vector<int> MapEditor::piecesAt(int x, int y) const {
    std::vector<int> found;
    for (int index = static_cast<int>(current.document.pieces.size()) - 1; index >= 0; --index) {
        if (isSelectable(index) && rectangleOf(index).contains(x, y)) {
            found.push_back(index);
        }
    }
    return found;
}

void MapEditor::clickAt(int x, int y, bool additive) {
    const std::vector<int> found = piecesAt(x, y);
    std::vector<int>& selection = current.selection;
    if (additive) {
        if (!found.empty()) {
            const auto at = std::lower_bound(selection.begin(), selection.end(), found.front());
            if (at != selection.end() && *at == found.front()) {
                selection.erase(at);
            } else {
                selection.insert(at, found.front());
            }
        }
        return;
    }
    int chosen = found.empty() ? -1 : found.front();
    if (selection.size() == 1) {
        const auto at = std::find(found.begin(), found.end(), selection.front());
        if (at != found.end()) {
            chosen = std::next(at) == found.end() ? found.front() : *std::next(at);
        }
    }
    selection.clear();
    if (chosen >= 0) {
        selection.push_back(chosen);
    }
}

void MapEditor::selectWithin(const LevelRect& area, bool additive) {
    std::vector<int>& selection = current.selection;
    if (!additive) {
        selection.clear();
    }
    for (int index = 0; index < static_cast<int>(current.document.pieces.size()); ++index) {
        if (isSelectable(index) && area.containsRect(rectangleOf(index)) && !isSelected(index)) {
            selection.insert(std::lower_bound(selection.begin(), selection.end(), index), index);
        }
    }
}

void MapEditor::selectAll() {
    selectWithin({INT_MIN, INT_MIN, INT_MAX, INT_MAX}, false);
}

void MapEditor::clearSelection() {
    current.selection.clear();
}

void MapEditor::record() {
    undoSteps.push_back(current);
    redoSteps.clear();
    current.revision = nextRevision++;
}

bool MapEditor::hasRoomFor(size_t added) const {
    return current.document.pieces.size() + added <= static_cast<size_t>(MapFile::kMaximumPieceCount);
}

bool MapEditor::place(const std::string& image, int x, int y) {
    if (!hasRoomFor(1)) {
        return false;
    }
    MapPiece piece;
    piece.image = image;
    piece.solid = true;
    piece.x = MapFile::withinReach(x);
    piece.y = MapFile::withinReach(y);
    record();
    current.selection.clear();
    appendSelected({piece});
    return true;
}

void MapEditor::appendSelected(const std::vector<MapPiece>& added) {
    std::vector<MapPiece>& pieces = current.document.pieces;
    for (const MapPiece& piece : added) {
        current.selection.push_back(static_cast<int>(pieces.size()));
        pieces.push_back(piece);
    }
}

bool MapEditor::moveSelection(int dx, int dy) {
    if (current.selection.empty() || (dx == 0 && dy == 0)) {
        return false;
    }
    record();
    for (int index : current.selection) {
        MapPiece& piece = current.document.pieces[static_cast<size_t>(index)];
        piece.x = MapFile::withinReach(static_cast<long long>(piece.x) + dx);
        piece.y = MapFile::withinReach(static_cast<long long>(piece.y) + dy);
    }
    return true;
}

bool MapEditor::nudge(int dx, int dy) {
    return moveSelection(dx, dy);
}

void MapEditor::beginDrag() {
    if (current.selection.empty()) {
        return;
    }
    record();
    dragging = true;
    dragOrigins.clear();
    for (int index : current.selection) {
        const MapPiece& piece = current.document.pieces[static_cast<size_t>(index)];
        dragOrigins.push_back({piece.x, piece.y});
    }
}

void MapEditor::dragBy(int dx, int dy) {
    if (!dragging) {
        return;
    }
    for (size_t i = 0; i < current.selection.size(); ++i) {
        MapPiece& piece = current.document.pieces[static_cast<size_t>(current.selection[i])];
        piece.x = MapFile::withinReach(static_cast<long long>(dragOrigins[i].x) + dx);
        piece.y = MapFile::withinReach(static_cast<long long>(dragOrigins[i].y) + dy);
    }
}

void MapEditor::endDrag() {
    if (!dragging) {
        return;
    }
    dragging = false;
    if (current.document == undoSteps.back().document) {
        current.revision = undoSteps.back().revision;
        undoSteps.pop_back();
    }
}

bool MapEditor::removeSelection() {
    if (current.selection.empty()) {
        return false;
    }
    record();
    std::vector<MapPiece>& pieces = current.document.pieces;
    for (auto index = current.selection.rbegin(); index != current.selection.rend(); ++index) {
        pieces.erase(pieces.begin() + *index);
    }
    current.selection.clear();
    return true;
}

bool MapEditor::duplicateSelection(int dx, int dy) {
    if (current.selection.empty() || !hasRoomFor(current.selection.size())) {
        return false;
    }
    std::vector<MapPiece> copies;
    for (int index : current.selection) {
        MapPiece copy = current.document.pieces[static_cast<size_t>(index)];
        copy.x = MapFile::withinReach(static_cast<long long>(copy.x) + dx);
        copy.y = MapFile::withinReach(static_cast<long long>(copy.y) + dy);
        copies.push_back(copy);
    }
    record();
    current.selection.clear();
    appendSelected(copies);
    return true;
}

void MapEditor::copySelection() {
    if (current.selection.empty()) {
        return;
    }
    clipboard.clear();
    for (int index : current.selection) {
        clipboard.push_back(current.document.pieces[static_cast<size_t>(index)]);
    }
}

bool MapEditor::paste(int x, int y) {
    if (clipboard.empty() || !hasRoomFor(clipboard.size())) {
        return false;
    }
    int left = INT_MAX;
    int top = INT_MAX;
    for (const MapPiece& piece : clipboard) {
        left = std::min(left, piece.x);
        top = std::min(top, piece.y);
    }
    std::vector<MapPiece> copies = clipboard;
    for (MapPiece& copy : copies) {
        copy.x = MapFile::withinReach(static_cast<long long>(copy.x) - left + x);
        copy.y = MapFile::withinReach(static_cast<long long>(copy.y) - top + y);
    }
    record();
    current.selection.clear();
    appendSelected(copies);
    return true;
}

bool MapEditor::toggleKind() {
    if (current.selection.empty()) {
        return false;
    }
    record();
    for (int index : current.selection) {
        MapPiece& piece = current.document.pieces[static_cast<size_t>(index)];
        piece.solid = !piece.solid;
    }
    // A piece turned into a locked kind cannot stay selected.
    dropUnselectable();
    return true;
}

bool MapEditor::replacePicture(const std::string& image) {
    if (current.selection.empty() || image.empty()) {
        return false;
    }
    record();
    for (int index : current.selection) {
        current.document.pieces[static_cast<size_t>(index)].image = image;
    }
    return true;
}

std::string MapEditor::pickPicture() const {
    return current.selection.empty()
               ? ""
               : current.document.pieces[static_cast<size_t>(current.selection.front())].image;
}

std::string MapEditor::setProperties(const LevelProperties& properties, bool atLeft, bool atTop) {
    LevelDocument changed = current.document;
    const long long shiftX = atLeft ? static_cast<long long>(properties.width) - changed.width : 0;
    const long long shiftY = atTop ? static_cast<long long>(properties.height) - changed.height : 0;
    changed.width = properties.width;
    changed.height = properties.height;
    changed.red = properties.red;
    changed.green = properties.green;
    changed.blue = properties.blue;
    for (MapPiece& piece : changed.pieces) {
        piece.x = MapFile::withinReach(piece.x + shiftX);
        piece.y = MapFile::withinReach(piece.y + shiftY);
    }
    if (properties.width < 1 || properties.height < 1) {
        return "the width and the height are at least 1";
    }
    for (int colour : {properties.red, properties.green, properties.blue}) {
        if (colour < 0 || colour > 255) {
            return "each colour is 0 to 255";
        }
    }
    const std::string refusal = changed.checkBounds();
    if (!refusal.empty() || changed == current.document) {
        return refusal;
    }
    record();
    current.document = std::move(changed);
    return "";
}

bool MapEditor::undo() {
    if (undoSteps.empty()) {
        return false;
    }
    redoSteps.push_back(std::move(current));
    current = std::move(undoSteps.back());
    undoSteps.pop_back();
    return true;
}

bool MapEditor::redo() {
    if (redoSteps.empty()) {
        return false;
    }
    undoSteps.push_back(std::move(current));
    current = std::move(redoSteps.back());
    redoSteps.pop_back();
    return true;
}

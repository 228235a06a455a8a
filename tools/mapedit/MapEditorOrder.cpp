// The changes of drawing order.
#include "MapEditor.h"

using Grevan::MapPiece;

bool MapEditor::raise() {
    std::vector<MapPiece>& pieces = current.document.pieces;
    std::vector<int>& selection = current.selection;
    // From the top down, so that a selected piece never jumps over another selected one.
    const int last = static_cast<int>(pieces.size()) - 1;
    if (selection.empty() || selection.front() == last - static_cast<int>(selection.size()) + 1) {
        return false;
    }
    record();
    int ceiling = last;
    for (auto index = selection.rbegin(); index != selection.rend(); ++index) {
        if (*index < ceiling) {
            std::swap(pieces[static_cast<size_t>(*index)], pieces[static_cast<size_t>(*index + 1)]);
            ++*index;
        }
        ceiling = *index - 1;
    }
    return true;
}

bool MapEditor::lower() {
    std::vector<MapPiece>& pieces = current.document.pieces;
    std::vector<int>& selection = current.selection;
    if (selection.empty() || selection.back() == static_cast<int>(selection.size()) - 1) {
        return false;
    }
    record();
    int floor = 0;
    for (int& index : selection) {
        if (index > floor) {
            std::swap(pieces[static_cast<size_t>(index)], pieces[static_cast<size_t>(index - 1)]);
            --index;
        }
        floor = index + 1;
    }
    return true;
}

bool MapEditor::regroup(bool selectedLast) {
    std::vector<MapPiece>& pieces = current.document.pieces;
    std::vector<MapPiece> chosen;
    std::vector<MapPiece> others;
    for (int index = 0; index < static_cast<int>(pieces.size()); ++index) {
        (isSelected(index) ? chosen : others).push_back(pieces[static_cast<size_t>(index)]);
    }
    const int first = selectedLast ? static_cast<int>(others.size()) : 0;
    std::vector<int> placed;
    for (int i = 0; i < static_cast<int>(chosen.size()); ++i) {
        placed.push_back(first + i);
    }
    if (chosen.empty() || placed == current.selection) {
        return false;
    }
    record();
    pieces = selectedLast ? others : chosen;
    const std::vector<MapPiece>& rest = selectedLast ? chosen : others;
    pieces.insert(pieces.end(), rest.begin(), rest.end());
    current.selection = placed;
    return true;
}

bool MapEditor::toFront() {
    return regroup(true);
}

bool MapEditor::toBack() {
    return regroup(false);
}

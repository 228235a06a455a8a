#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "LevelDocument.h"

// A point or a size in level pixels.
struct LevelPoint {
    int x = 0;
    int y = 0;
};

// A rectangle of the level; right and bottom are one past it, as the game's rectangles are.
struct LevelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool contains(int x, int y) const { return left <= x && x < right && top <= y && y < bottom; }
    bool containsRect(const LevelRect& other) const {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }
};

// The nearest multiple of the step (halves away from zero); a step of 0 or less leaves the value.
int snapToGrid(int value, int step);

// The level's size and background colour, as the properties form edits them.
struct LevelProperties {
    int width = 0;
    int height = 0;
    int red = 0;
    int green = 0;
    int blue = 0;
};

// What the author edits and how: the level, the selection, the clipboard and the history of
// changes. It knows nothing of windows; the size of a piece comes from the picture sizes it is
// given (a missing picture has the placeholder's size). Every change is one step of undo, without
// limit: each step keeps a copy of the level and the selection as they were before it.
class MapEditor {
  public:
    using PictureSizes = std::function<LevelPoint(const std::string& image)>;

    explicit MapEditor(PictureSizes sizes);

    // Starts over with the level, without history, as saved or (a recovered autosave) not.
    void open(LevelDocument document, bool saved = true);
    const LevelDocument& getDocument() const { return current.document; }
    // Indices into the pieces, ascending.
    const std::vector<int>& getSelection() const { return current.selection; }
    bool isSelected(int index) const;
    bool isModified() const { return current.revision != savedRevision; }
    // Changes with every change of the level, and back with undo and redo.
    long getRevision() const { return current.revision; }
    void markSaved() { savedRevision = current.revision; }

    // A locked kind (solid or decoration) can neither be selected nor changed; locking drops its
    // pieces from the selection.
    void setLocked(bool solid, bool locked);
    bool isLocked(bool solid) const { return solid ? solidLocked : decorationLocked; }

    LevelRect rectangleOf(int index) const;
    // The selectable pieces under the point, the topmost (the last drawn) first.
    std::vector<int> piecesAt(int x, int y) const;

    // Selects the topmost piece under the point; when that piece is already the one selected,
    // the next one beneath it instead, round again after the lowest. Additive toggles the
    // topmost piece in the selection.
    void clickAt(int x, int y, bool additive);
    // Selects the selectable pieces lying wholly inside the rectangle.
    void selectWithin(const LevelRect& area, bool additive);
    void selectAll();
    void clearSelection();

    // The changes. Each returns false when it changes nothing (no selection, a refused count).
    // A placed piece is solid, drawn last and selected.
    bool place(const std::string& image, int x, int y);
    bool nudge(int dx, int dy);
    // A drag is one change however far the mouse goes; a drag that ends where it began is none.
    void beginDrag();
    void dragBy(int dx, int dy);
    void endDrag();
    bool isDragging() const { return dragging; }
    bool removeSelection();
    bool duplicateSelection(int dx, int dy);
    void copySelection();
    int getClipboardSize() const { return static_cast<int>(clipboard.size()); }
    // The copies keep their layout, with the top-left of their positions at the point.
    bool paste(int x, int y);
    // One place up or down in drawing order, past the next piece that is not selected.
    bool raise();
    bool lower();
    bool toFront();
    bool toBack();
    bool toggleKind();
    bool replacePicture(const std::string& image);
    // The picture of the first selected piece, or empty.
    std::string pickPicture() const;
    // Empty when applied; otherwise why the game would refuse the level, and nothing changes.
    // Growing or shrinking at the left or top edge moves every piece with that edge.
    std::string setProperties(const LevelProperties& properties, bool atLeft, bool atTop);

    bool undo();
    bool redo();
    bool canUndo() const { return !undoSteps.empty(); }
    bool canRedo() const { return !redoSteps.empty(); }

    // Where the play-test puts the user's player, and where the level's reach is measured from.
    void setStartPoint(std::optional<LevelPoint> point) { startPoint = point; }
    std::optional<LevelPoint> getStartPoint() const { return startPoint; }

  private:
    struct State {
        LevelDocument document;
        std::vector<int> selection;
        long revision = 0;
    };

    bool isSelectable(int index) const;
    void dropUnselectable();
    // Keeps the level as it is for undo before a change.
    void record();
    bool hasRoomFor(size_t added) const;
    bool moveSelection(int dx, int dy);
    void appendSelected(const std::vector<Grevan::MapPiece>& added);
    // Puts the selected pieces at the front or back, each group keeping its own order.
    bool regroup(bool selectedLast);

    PictureSizes sizes;
    State current;
    std::vector<State> undoSteps;
    std::vector<State> redoSteps;
    long savedRevision = 0;
    long nextRevision = 1;
    bool solidLocked = false;
    bool decorationLocked = false;
    std::vector<Grevan::MapPiece> clipboard;
    bool dragging = false;
    std::vector<LevelPoint> dragOrigins;  // of the selected pieces, in selection order
    std::optional<LevelPoint> startPoint;
};

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "MapEditor.h"

namespace {

// Pieces A (10 x 10), B (20 x 20) and C (100 x 50); any other name is missing (40 x 40).
LevelPoint sizeOf(const std::string& image) {
    static const std::map<std::string, LevelPoint> sizes{{"A", {10, 10}}, {"B", {20, 20}}, {"C", {100, 50}}};
    const auto found = sizes.find(image);
    return found == sizes.end() ? LevelPoint{40, 40} : found->second;
}

Grevan::MapPiece piece(const std::string& image, int x, int y, bool solid) {
    Grevan::MapPiece made;
    made.image = image;
    made.x = x;
    made.y = y;
    made.solid = solid;
    return made;
}

// A level of 400 x 300: A solid at (0, 0), B decoration at (5, 5) over it, C solid at (50, 0).
LevelDocument startingLevel() {
    LevelDocument level;
    level.width = 400;
    level.height = 300;
    level.pieces = {piece("A", 0, 0, true), piece("B", 5, 5, false), piece("C", 50, 0, true)};
    return level;
}

// The pieces as "NAME x,y s|d" in drawing order, then "|" and the selected indices.
std::string describe(const MapEditor& editor) {
    std::ostringstream out;
    for (const Grevan::MapPiece& each : editor.getDocument().pieces) {
        out << each.image << " " << each.x << "," << each.y << (each.solid ? " s" : " d") << "; ";
    }
    out << "|";
    for (int index : editor.getSelection()) {
        out << " " << index;
    }
    return out.str();
}

}  // namespace

TEST(MapEditor, EditSequencesMakeTheExpectedLevelAndSelection) {
    const int far = Grevan::MapFile::kFarthestPiece;
    const std::tuple<const char*, std::function<void(MapEditor&)>, std::string> cases[] = {
        {"a click takes the topmost piece, clicks again go beneath and round",
         [](MapEditor& e) { e.clickAt(7, 7, false), e.clickAt(7, 7, false); },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 0"},
        {"the third click is round again",
         [](MapEditor& e) { e.clickAt(7, 7, false), e.clickAt(7, 7, false), e.clickAt(7, 7, false); },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 1"},
        {"right and bottom edges are outside; an empty click clears",
         [](MapEditor& e) { e.clickAt(60, 10, false), e.clickAt(150, 10, false); },
         "A 0,0 s; B 5,5 d; C 50,0 s; |"},
        {"shift-click adds and takes out",
         [](MapEditor& e) { e.clickAt(1, 1, true), e.clickAt(60, 1, true), e.clickAt(1, 1, true); },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 2"},
        {"a band takes only the pieces wholly inside",
         [](MapEditor& e) {
             e.selectWithin({0, 0, 25, 25}, false);
         },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 0 1"},
        {"a placed piece is solid, last and alone selected",
         [](MapEditor& e) { e.selectAll(), e.place("X", 7, -3); },
         "A 0,0 s; B 5,5 d; C 50,0 s; X 7,-3 s; | 3"},
        {"a drag moves from where it began, as one change",
         [](MapEditor& e) {
             e.selectAll(), e.beginDrag(), e.dragBy(30, 30), e.dragBy(2, -1), e.endDrag(), e.undo(), e.redo();
         },
         "A 2,-1 s; B 7,4 d; C 52,-1 s; | 0 1 2"},
        {"a drag that ends where it began is no change",
         [](MapEditor& e) {
             e.clickAt(1, 1, false), e.nudge(1, 0), e.beginDrag(), e.dragBy(9, 9), e.dragBy(0, 0),
                 e.endDrag(), e.undo();
         },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 0"},
        {"nudges stop at the farthest place",
         [far](MapEditor& e) { e.clickAt(60, 1, false), e.nudge(far, -far), e.nudge(far, -far); },
         "A 0,0 s; B 5,5 d; C " + std::to_string(far) + "," + std::to_string(-far) + " s; | 2"},
        {"delete, then undo brings it back selected",
         [](MapEditor& e) { e.clickAt(7, 7, false), e.removeSelection(), e.undo(); },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 1"},
        {"duplicates go last, offset and selected",
         [](MapEditor& e) {
             e.selectWithin({0, 0, 25, 25}, false), e.duplicateSelection(10, 10);
         },
         "A 0,0 s; B 5,5 d; C 50,0 s; A 10,10 s; B 15,15 d; | 3 4"},
        {"a paste puts the copies' top-left at the point",
         [](MapEditor& e) {
             e.selectWithin({0, 0, 25, 25}, false), e.copySelection(), e.removeSelection(), e.paste(100, 200);
         },
         "C 50,0 s; A 100,200 s; B 105,205 d; | 1 2"},
        {"raise passes one piece that is not selected",
         [](MapEditor& e) { e.clickAt(1, 1, false), e.raise(); }, "B 5,5 d; A 0,0 s; C 50,0 s; | 1"},
        {"raise keeps a selection packed at the top",
         [](MapEditor& e) { e.clickAt(60, 1, false), e.clickAt(7, 7, true), e.raise(), e.raise(); },
         "A 0,0 s; B 5,5 d; C 50,0 s; | 1 2"},
        {"lower, to the front and to the back keep each group's order",
         [](MapEditor& e) {
             e.clickAt(60, 1, false), e.lower(), e.clickAt(1, 1, true), e.toFront(), e.toBack(), e.toFront();
         },
         "B 5,5 d; A 0,0 s; C 50,0 s; | 1 2"},
        {"kind toggles; a locked kind is dropped and cannot be clicked",
         [](MapEditor& e) {
             e.selectAll(), e.toggleKind(), e.setLocked(false, true), e.clickAt(7, 7, false);
         },
         "A 0,0 d; B 5,5 s; C 50,0 d; | 1"},
        {"a picture is replaced in place",
         [](MapEditor& e) { e.clickAt(1, 1, false), e.replacePicture(e.getDocument().pieces[2].image); },
         "C 0,0 s; B 5,5 d; C 50,0 s; | 0"},
        {"growing at the left and top moves every piece",
         [](MapEditor& e) {
             e.setProperties({450, 280, 1, 2, 3}, true, true);
         },
         "A 50,-20 s; B 55,-15 d; C 100,-20 s; |"},
        {"a new change after undo drops the redo",
         [](MapEditor& e) { e.clickAt(1, 1, false), e.nudge(5, 0), e.undo(), e.nudge(0, 5), e.redo(); },
         "A 0,5 s; B 5,5 d; C 50,0 s; | 0"},
    };
    for (const auto& [name, edits, expected] : cases) {
        MapEditor editor(sizeOf);
        editor.open(startingLevel());
        edits(editor);
        EXPECT_EQ(describe(editor), expected) << name;
    }
}

TEST(MapEditor, ChangesTheGameWouldRefuseAreNotMadeAndUndoingToTheSaveIsUnmodified) {
    MapEditor editor(sizeOf);
    editor.open(startingLevel());
    const std::tuple<LevelProperties, std::string> refused[] = {
        {{0, 300, 0, 0, 0}, "the width and the height are at least 1"},
        {{400, 300, 0, 256, 0}, "each colour is 0 to 255"},
        {{8193, 8192, 0, 0, 0}, "the level area 8193 x 8192 is too large: at most 67108864 pixels"},
    };
    for (const auto& [properties, refusal] : refused) {
        EXPECT_EQ(editor.setProperties(properties, false, false), refusal);
    }
    EXPECT_FALSE(editor.canUndo());
    EXPECT_EQ(editor.setProperties({8192, 8192, 0, 0, 0}, false, false), "");
    EXPECT_TRUE(editor.isModified());
    editor.undo();
    EXPECT_FALSE(editor.isModified());

    LevelDocument full;
    full.pieces.assign(Grevan::MapFile::kMaximumPieceCount - 1, piece("A", 0, 0, true));
    editor.open(full);
    EXPECT_TRUE(editor.place("A", 1, 1));
    EXPECT_FALSE(editor.place("A", 2, 2));
    EXPECT_FALSE(editor.duplicateSelection(1, 1));
    EXPECT_EQ(editor.getDocument().pieces.size(), static_cast<size_t>(Grevan::MapFile::kMaximumPieceCount));
}

TEST(MapEditor, SnapsToTheNearestGridLineHalvesAwayFromZero) {
    const std::tuple<int, int, int> cases[] = {
        {7, 5, 5},    {8, 5, 10},     {-7, 5, -5}, {-8, 5, -10},
        {25, 50, 50}, {-25, 50, -50}, {3, 0, 3},   {2147483647, 50, 2147483647}};
    for (auto [value, step, expected] : cases) {
        EXPECT_EQ(snapToGrid(value, step), expected) << value << " on " << step;
    }
}

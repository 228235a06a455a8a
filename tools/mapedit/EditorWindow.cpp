#include "EditorWindow.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "PlayTest.h"

namespace {

const auto kAutosaveEvery = std::chrono::minutes(1);
const auto kPollEvery = std::chrono::milliseconds(10);
const auto kRedrawAnyway = std::chrono::milliseconds(500);
const char* const kPictureFolder = "image/object";

// Every key and mouse action, as F1 shows them.
const char* const kHelp[][2] = {
    {"Left click", "select the topmost piece; again: the one beneath"},
    {"Shift+click", "add a piece to the selection or take it out"},
    {"Left drag", "move the selection, or draw a band to select"},
    {"Palette click", "choose a picture; clicks in the level place it"},
    {"Right click, Esc", "stop placing; Esc again drops the selection"},
    {"Middle drag, wheel", "scroll (Shift+wheel: sideways)"},
    {"Ctrl+wheel, 1 2 3", "zoom 1, 1/2, 1/4"},
    {"Alt (held)", "no snapping while it is down"},
    {"Arrows", "nudge 1 pixel (Shift: one grid step)"},
    {"Ctrl+arrows", "scroll"},
    {"Delete", "remove the selection"},
    {"Ctrl+D, Ctrl+C/X/V", "duplicate; copy, cut, paste at the mouse"},
    {"PgUp, PgDn", "raise, lower in drawing order"},
    {"Home, End", "to the front, to the back"},
    {"K", "toggle solid / decoration"},
    {"R", "replace the selection's picture by the palette's"},
    {"I", "pick the selected piece's picture into the palette"},
    {"G", "grid step: off, 5, 10, 25, 50"},
    {"O", "collision outlines on / off"},
    {"H", "how far the player gets from the start point or the mouse"},
    {"V, B", "decoration, solid pieces: shown, dimmed, hidden"},
    {"Shift+V, Shift+B", "lock / unlock decoration, solid pieces"},
    {"P", "level properties: size, background colour"},
    {"T, Shift+T", "set the start point at the mouse; clear it"},
    {"F5", "play-test from the start point or the mouse"},
    {"Ctrl+Z, Ctrl+Y", "undo, redo (also Ctrl+Shift+Z)"},
    {"Ctrl+A", "select all"},
    {"Ctrl+S, Ctrl+Shift+S", "save, save as"},
    {"Ctrl+O, Ctrl+N", "open a map, start a new one"},
    {"Ctrl+Q, close box", "quit"},
    {"F1", "this help"},
};

volatile bool closeRequested = false;
void requestClose() {
    closeRequested = true;
}

}  // namespace

EditorWindow::EditorWindow(std::string game)
    : game(std::move(game)),
      editor([this](const std::string& image) { return view.getPieceSize(image); }),
      palette(kPictureFolder),
      buffer(create_bitmap(kWidth, kHeight)) {
    set_close_button_callback(requestClose);
    view.addOverlay(&reach);
}

void EditorWindow::run(const std::string& path) {
    if (path.empty() || !openMap(path)) {
        const std::string refusal = message;
        newMap();
        if (!path.empty()) {
            say(refusal + " - a new level instead");
        }
    }
    if (palette.getNames().empty()) {
        say(std::string("No pictures in ") + kPictureFolder + ": run mapedit from the game's data folder");
    }
    lastAutosave = std::chrono::steady_clock::now();
    // The view is drawn again when the mouse or the keys did something, or a message changed; and
    // now and then in any case. An idle editor leaves the shared machine's processors alone.
    std::array<int, 5> lastInput{};
    auto lastDrawn = std::chrono::steady_clock::now() - kRedrawAnyway;
    while (!quitting) {
        if (closeRequested) {
            closeRequested = false;
            unlessUnsaved([this] { quitting = true; });
            changed = true;
        }
        while (keypressed()) {
            const int pressed = readkey();
            handleKey(pressed >> 8, pressed & 0xff);
            changed = true;
        }
        const std::array<int, 5> input{mouse_x, mouse_y, mouse_b, mouse_z, key_shifts};
        changed = changed || input != lastInput;
        lastInput = input;
        handleMouse();
        autosaveWhenDue();
        changed = reach.update(pointedInView()) || changed;
        const auto now = std::chrono::steady_clock::now();
        if (changed || now - lastDrawn >= kRedrawAnyway) {
            redraw();
            changed = false;
            lastDrawn = now;
        }
        std::this_thread::sleep_for(kPollEvery);
    }
}

bool EditorWindow::openMap(const std::string& path) {
    LevelDocument document;
    std::string error;
    int dropped = 0;
    if (!document.read(path, error, dropped)) {
        std::printf("%s\n", error.c_str());
        std::fflush(stdout);
        say(error);
        return false;
    }
    editor.open(std::move(document));
    mapPath = path;
    autosavedRevision = editor.getRevision();
    showLevel();
    say("Opened " + path +
        (dropped ? ", without " + std::to_string(dropped) + " records that name no picture" : std::string()));
    offerAutosave();
    return true;
}

void EditorWindow::newMap() {
    editor.open(LevelDocument());
    mapPath.clear();
    autosavedRevision = editor.getRevision();
    showLevel();
    say("A new level");
    offerAutosave();
}

void EditorWindow::showLevel() {
    // The bottom-left screen, where the shipped levels start.
    camera = ViewTransform{0, static_cast<long long>(editor.getDocument().height) - kViewHeight, 0};
    updateTitle();
}

std::string EditorWindow::autosavePath() const {
    return (mapPath.empty() ? std::string("untitled.map") : mapPath) + ".autosave";
}

void EditorWindow::offerAutosave() {
    namespace fs = std::filesystem;
    std::error_code failure;
    const std::string autosave = autosavePath();
    if (!fs::exists(autosave, failure) ||
        fs::last_write_time(autosave, failure) <= fs::last_write_time(mapPath, failure)) {
        return;
    }
    prompt = EditorPrompt::choice("An autosave newer than the map was found: open it? (y/n)", "yn",
                                  [this, autosave](char key, const std::string&) {
                                      LevelDocument document;
                                      std::string error;
                                      int dropped = 0;
                                      if (key != 'y' || !document.read(autosave, error, dropped)) {
                                          say(key == 'y' ? error : "The autosave stays as it is");
                                          return;
                                      }
                                      // Opened as unsaved work on the map it belongs to.
                                      editor.open(std::move(document), false);
                                      say("Opened the autosave: save to keep it");
                                  });
}

bool EditorWindow::save() {
    if (mapPath.empty()) {
        saveAs([] {});
        return false;
    }
    std::string error;
    if (!editor.getDocument().save(mapPath, true, error)) {
        say("NOT SAVED: " + error);
        return false;
    }
    editor.markSaved();
    std::error_code failure;
    std::filesystem::remove(autosavePath(), failure);
    say("Saved " + mapPath + " (" + std::to_string(editor.getDocument().pieces.size()) + " pieces)");
    updateTitle();
    return true;
}

void EditorWindow::saveAs(const std::function<void()>& then) {
    const std::string initial = mapPath.empty() ? "maps/untitled.map" : mapPath;
    prompt = EditorPrompt::text("Save as:", initial, [this, then](char, const std::string& path) {
        const std::string previous = mapPath;
        mapPath = path;
        if (save()) {
            then();
        } else {
            mapPath = previous;
        }
        updateTitle();
    });
}

void EditorWindow::autosaveWhenDue() {
    const auto now = std::chrono::steady_clock::now();
    if (now - lastAutosave < kAutosaveEvery) {
        return;
    }
    lastAutosave = now;
    if (!editor.isModified() || editor.getRevision() == autosavedRevision) {
        return;
    }
    std::string error;
    if (editor.getDocument().save(autosavePath(), false, error)) {
        autosavedRevision = editor.getRevision();
        say("Autosaved to " + autosavePath());
    } else {
        say("AUTOSAVE FAILED: " + error);
    }
}

void EditorWindow::unlessUnsaved(const std::function<void()>& action) {
    if (!editor.isModified()) {
        action();
        return;
    }
    prompt = EditorPrompt::choice("The level has unsaved changes. Save them first? (y)es, (n)o, (c)ancel",
                                  "ync", [this, action](char key, const std::string&) {
                                      if (key == 'y' && !mapPath.empty() && save()) {
                                          action();
                                      } else if (key == 'y' && mapPath.empty()) {
                                          saveAs(action);
                                      } else if (key == 'n') {
                                          std::error_code failure;
                                          std::filesystem::remove(autosavePath(), failure);
                                          action();
                                      }
                                  });
}

void EditorWindow::playTest() {
    say("Playing the level: Esc in the game comes back here");
    redraw();
    std::string error;
    const bool played = PlayTest::run(editor.getDocument(), playStart(), game, error);
    // What was typed and clicked in the game was meant for the game.
    clear_keybuf();
    previousButtons = mouse_b;
    mouseMode = MOUSE_IDLE;
    say(played ? "Back from the play-test" : "PLAY-TEST FAILED: " + error);
}

void EditorWindow::updateTitle() {
    const std::string title = "mapedit - " + (mapPath.empty() ? std::string("new level") : mapPath) +
                              (editor.isModified() ? " *" : "");
    if (title != shownTitle) {
        shownTitle = title;
        set_window_title(title.c_str());
    }
}

void EditorWindow::redraw() {
    BITMAP* target = buffer.get();
    BITMAP* level = create_sub_bitmap(target, 0, 0, kViewWidth, kViewHeight);
    BITMAP* pictures = create_sub_bitmap(target, kViewWidth, 0, PicturePalette::kWidth, kViewHeight);
    options.mouse = pointedInView();
    options.ghost = palette.getChosen();
    if (options.mouse && !options.ghost.empty()) {
        options.ghostAt = brushCorner(*options.mouse);
    }
    view.draw(level, editor, camera, options);
    palette.draw(pictures, view);
    drawStatus(target);
    if (form) {
        form->draw(level);
    }
    if (helpShown) {
        drawHelp(level);
    }
    destroy_bitmap(level);
    destroy_bitmap(pictures);
    scare_mouse();
    blit(target, screen, 0, 0, 0, 0, kWidth, kHeight);
    unscare_mouse();
    updateTitle();
}

std::string EditorWindow::describeSelection() {
    const std::vector<int>& selection = editor.getSelection();
    const int count = static_cast<int>(editor.getDocument().pieces.size());
    if (selection.empty()) {
        return palette.getChosen().empty()
                   ? "Nothing selected: click a piece, or choose a picture at the right to place it"
                   : "Placing " + palette.getChosen() + ": click in the level (right click stops)";
    }
    if (selection.size() > 1) {
        return std::to_string(selection.size()) + " pieces selected of " + std::to_string(count);
    }
    const Grevan::MapPiece& piece = editor.getDocument().pieces[static_cast<size_t>(selection.front())];
    const LevelRect area = editor.rectangleOf(selection.front());
    const std::string missing = view.getPicture(piece.image) ? "" : " (cannot be loaded)";
    return piece.image + missing + "  at " + std::to_string(piece.x) + ", " + std::to_string(piece.y) +
           "  size " + std::to_string(area.right - area.left) + " x " +
           std::to_string(area.bottom - area.top) + "  " + (piece.solid ? "solid" : "decoration") +
           "  piece " + std::to_string(selection.front() + 1) + " of " + std::to_string(count);
}

void EditorWindow::drawStatus(BITMAP* target) {
    const int top = kViewHeight;
    const int text = makecol(230, 230, 230);
    rectfill(target, 0, top, kWidth - 1, kHeight - 1, makecol(18, 18, 22));
    hline(target, 0, top, kWidth - 1, makecol(90, 96, 110));
    const auto display = [](KindDisplay shown, bool locked) {
        const char* names[] = {"shown", "dimmed", "hidden"};
        return std::string(names[static_cast<int>(shown)]) + (locked ? ", locked" : "");
    };
    std::string where = "x -  y -";
    if (options.mouse) {
        where = "x " + std::to_string(options.mouse->x) + "  y " + std::to_string(options.mouse->y);
    }
    const std::string state = where + "  |  zoom 1/" + std::to_string(1 << camera.zoomShift) + "  grid " +
                              (gridStep() ? std::to_string(gridStep()) : std::string("off")) + "  outlines " +
                              (options.outlines ? "on" : "off") + "  |  solid " +
                              display(options.solid, editor.isLocked(true)) + "  decoration " +
                              display(options.decoration, editor.isLocked(false));
    textout_ex(target, font, state.c_str(), 6, top + 5, text, -1);
    textout_ex(target, font, describeSelection().c_str(), 6, top + 17, makecol(255, 230, 0), -1);
    if (prompt) {
        prompt->draw(target, 6, top + 29);
    } else {
        textout_ex(target, font, message.c_str(), 6, top + 29, makecol(150, 200, 255), -1);
    }
    textout_right_ex(target, font, (reach.status() + "    F1: keys").c_str(), kWidth - 6, top + 29,
                     makecol(150, 150, 160), -1);
}

void EditorWindow::drawHelp(BITMAP* target) const {
    const int rows = static_cast<int>(sizeof(kHelp) / sizeof(kHelp[0]));
    const int left = 60;
    const int top = 30;
    rectfill(target, left, top, target->w - left, top + 28 + rows * 12, makecol(20, 22, 30));
    rect(target, left, top, target->w - left, top + 28 + rows * 12, makecol(255, 230, 0));
    textout_ex(target, font, "Keys and mouse (F1 or Esc closes)", left + 12, top + 8, makecol(255, 230, 0),
               -1);
    for (int row = 0; row < rows; ++row) {
        const int y = top + 24 + row * 12;
        textout_ex(target, font, kHelp[row][0], left + 12, y, makecol(150, 200, 255), -1);
        textout_ex(target, font, kHelp[row][1], left + 200, y, makecol(235, 235, 235), -1);
    }
}

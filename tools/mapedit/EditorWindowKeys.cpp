// The editor's keys, and where the mouse points in the level.
#include <algorithm>
#include <cstdlib>

#include "EditorWindow.h"

namespace {

const int kGridSteps[] = {0, 5, 10, 25, 50};  // pixels; 0 is off
const int kNudgeWithoutGrid = 10;             // pixels, Shift+arrow while the grid is off
const int kMaximumZoomShift = 2;              // 1/4

KindDisplay nextDisplay(KindDisplay display) {
    return static_cast<KindDisplay>((static_cast<int>(display) + 1) % 3);
}

}  // namespace

int EditorWindow::gridStep() const {
    return kGridSteps[gridIndex];
}

int EditorWindow::largeStep() const {
    return gridStep() ? gridStep() : kNudgeWithoutGrid;
}

int EditorWindow::snapped(int value) const {
    // Alt held turns snapping off while it is down.
    return key[KEY_ALT] || key[KEY_ALTGR] ? value : snapToGrid(value, gridStep());
}

bool EditorWindow::isOverView(int screenX, int screenY) const {
    return screenX >= 0 && screenX < kViewWidth && screenY >= 0 && screenY < kViewHeight;
}

LevelPoint EditorWindow::levelAt(int screenX, int screenY) const {
    return {Grevan::MapFile::withinReach(camera.toLevelX(screenX)),
            Grevan::MapFile::withinReach(camera.toLevelY(screenY))};
}

LevelPoint EditorWindow::brushCorner(const LevelPoint& point) {
    const LevelPoint size = view.getPieceSize(palette.getChosen());
    return {snapped(point.x - size.x / 2), snapped(point.y - size.y / 2)};
}

LevelPoint EditorWindow::playStart() {
    if (const std::optional<LevelPoint> start = editor.getStartPoint()) {
        return *start;
    }
    return pointed();
}

std::optional<LevelPoint> EditorWindow::pointedInView() const {
    if (isOverView(mouse_x, mouse_y) && !prompt && !form) {
        return levelAt(mouse_x, mouse_y);
    }
    return std::nullopt;
}

LevelPoint EditorWindow::pointed() const {
    return isOverView(mouse_x, mouse_y) ? levelAt(mouse_x, mouse_y)
                                        : levelAt(kViewWidth / 2, kViewHeight / 2);
}

void EditorWindow::scrollBy(long long dx, long long dy) {
    const long long reach = Grevan::MapFile::kFarthestPiece;
    camera.cameraX = std::clamp(camera.cameraX + dx, -reach, reach);
    camera.cameraY = std::clamp(camera.cameraY + dy, -reach, reach);
}

void EditorWindow::zoomTo(int zoomShift, int screenX, int screenY) {
    zoomShift = std::clamp(zoomShift, 0, kMaximumZoomShift);
    // The level point under the mouse stays under it.
    const long long levelX = camera.toLevelX(screenX);
    const long long levelY = camera.toLevelY(screenY);
    camera.zoomShift = zoomShift;
    camera.cameraX = levelX - (static_cast<long long>(screenX) << zoomShift);
    camera.cameraY = levelY - (static_cast<long long>(screenY) << zoomShift);
    keepLevelInView();
}

void EditorWindow::keepLevelInView() {
    const auto place = [this](long long& cameraAt, long long levelSize, int viewSize) {
        const long long shown = static_cast<long long>(viewSize) << camera.zoomShift;
        cameraAt =
            levelSize <= shown ? (levelSize - shown) / 2 : std::clamp(cameraAt, 0LL, levelSize - shown);
    };
    place(camera.cameraX, editor.getDocument().width, kViewWidth);
    place(camera.cameraY, editor.getDocument().height, kViewHeight);
}

void EditorWindow::handleKey(int scancode, int ascii) {
    if (prompt) {
        // Answering may open the next prompt in this one's place.
        EditorPrompt asked = std::move(*prompt);
        prompt.reset();
        asked.handleKey(scancode, ascii);
        if (asked.isOpen() && !prompt) {
            prompt = std::move(asked);
        }
        return;
    }
    if (form) {
        const PropertiesForm::Outcome outcome = form->handleKey(scancode, ascii);
        if (outcome == PropertiesForm::FORM_APPLY) {
            const std::string refusal =
                editor.setProperties(form->getProperties(), form->isAtLeft(), form->isAtTop());
            if (refusal.empty()) {
                form.reset();
                say("Level properties changed");
            } else {
                form->setError(refusal);
            }
        } else if (outcome == PropertiesForm::FORM_CANCEL) {
            form.reset();
        }
        return;
    }
    if (helpShown && (scancode == KEY_ESC || scancode == KEY_F1)) {
        helpShown = false;
        return;
    }
    const bool shift = key_shifts & KB_SHIFT_FLAG;
    if (key_shifts & KB_CTRL_FLAG) {
        handleCommandKey(scancode);
    } else if (!handleEditKey(scancode, shift)) {
        handleViewKey(scancode, shift);
    }
}

bool EditorWindow::handleCommandKey(int scancode) {
    const bool shift = key_shifts & KB_SHIFT_FLAG;
    const int screenStep = (kViewWidth / 4) << camera.zoomShift;
    switch (scancode) {
        case KEY_S:
            shift ? saveAs([] {}) : static_cast<void>(save());
            return true;
        case KEY_O:
            unlessUnsaved([this] {
                prompt = EditorPrompt::text("Open:", mapPath.empty() ? "maps/" : mapPath,
                                            [this](char, const std::string& path) { openMap(path); });
            });
            return true;
        case KEY_N:
            unlessUnsaved([this] { newMap(); });
            return true;
        case KEY_Q:
            unlessUnsaved([this] { quitting = true; });
            return true;
        case KEY_Z:
            say((shift ? editor.redo() : editor.undo()) ? (shift ? "Redone" : "Undone")
                                                        : "Nothing to undo or redo");
            return true;
        case KEY_Y:
            say(editor.redo() ? "Redone" : "Nothing to redo");
            return true;
        case KEY_A:
            editor.selectAll();
            return true;
        case KEY_C:
            editor.copySelection();
            say(std::to_string(editor.getClipboardSize()) + " pieces in the clipboard");
            return true;
        case KEY_X:
            editor.copySelection();
            editor.removeSelection();
            return true;
        case KEY_V: {
            const LevelPoint at = pointed();
            say(editor.paste(snapped(at.x), snapped(at.y))
                    ? "Pasted"
                    : "Nothing pasted (empty clipboard or 100000 pieces)");
            return true;
        }
        case KEY_D:
            say(editor.duplicateSelection(largeStep(), largeStep()) ? "Duplicated" : "Nothing duplicated");
            return true;
        case KEY_LEFT:
            scrollBy(-screenStep, 0);
            return true;
        case KEY_RIGHT:
            scrollBy(screenStep, 0);
            return true;
        case KEY_UP:
            scrollBy(0, -screenStep);
            return true;
        case KEY_DOWN:
            scrollBy(0, screenStep);
            return true;
        default:
            return false;
    }
}

bool EditorWindow::handleEditKey(int scancode, bool shift) {
    const int step = shift ? largeStep() : 1;
    switch (scancode) {
        case KEY_LEFT:
            editor.nudge(-step, 0);
            return true;
        case KEY_RIGHT:
            editor.nudge(step, 0);
            return true;
        case KEY_UP:
            editor.nudge(0, -step);
            return true;
        case KEY_DOWN:
            editor.nudge(0, step);
            return true;
        case KEY_DEL:
            editor.removeSelection();
            return true;
        case KEY_PGUP:
            editor.raise();
            return true;
        case KEY_PGDN:
            editor.lower();
            return true;
        case KEY_HOME:
            editor.toFront();
            return true;
        case KEY_END:
            editor.toBack();
            return true;
        case KEY_K:
            editor.toggleKind();
            return true;
        case KEY_R:
            say(editor.replacePicture(palette.getChosen()) ? "Picture replaced"
                                                           : "Choose a picture and select pieces to replace");
            return true;
        case KEY_I:
            palette.choose(editor.pickPicture(), kViewHeight / PicturePalette::kRowHeight);
            return true;
        case KEY_P:
            form.emplace(editor.getDocument());
            return true;
        case KEY_T:
            if (shift) {
                editor.setStartPoint(std::nullopt);
            } else if (isOverView(mouse_x, mouse_y)) {
                editor.setStartPoint(levelAt(mouse_x, mouse_y));
            }
            return true;
        case KEY_F5:
            playTest();
            return true;
        default:
            return false;
    }
}

bool EditorWindow::handleViewKey(int scancode, bool shift) {
    switch (scancode) {
        case KEY_ESC:
            if (!palette.getChosen().empty()) {
                palette.clearChoice();
            } else {
                editor.clearSelection();
            }
            return true;
        case KEY_F1:
            helpShown = !helpShown;
            return true;
        case KEY_G:
            gridIndex = (gridIndex + 1) % (sizeof(kGridSteps) / sizeof(kGridSteps[0]));
            return true;
        case KEY_O:
            options.outlines = !options.outlines;
            return true;
        case KEY_H: {
            std::string refusal;
            if (!reach.toggle(refusal)) {
                say(refusal);
            }
            return true;
        }
        case KEY_1:
        case KEY_2:
        case KEY_3:
            isOverView(mouse_x, mouse_y) ? zoomTo(scancode - KEY_1, mouse_x, mouse_y)
                                         : zoomTo(scancode - KEY_1, kViewWidth / 2, kViewHeight / 2);
            return true;
        case KEY_V:
        case KEY_B: {
            const bool solid = scancode == KEY_B;
            if (shift) {
                editor.setLocked(solid, !editor.isLocked(solid));
            } else {
                KindDisplay& display = solid ? options.solid : options.decoration;
                display = nextDisplay(display);
                // What cannot be seen cannot be picked.
                editor.setLocked(solid, display == KindDisplay::HIDDEN || editor.isLocked(solid));
            }
            return true;
        }
        default:
            return false;
    }
}

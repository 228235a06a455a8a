// The editor's mouse actions: choosing in the palette, placing, selecting, dragging, banding
// and scrolling.
#include <algorithm>
#include <cstdlib>

#include "EditorWindow.h"

namespace {

const int kDragThreshold = 4;  // screen pixels the mouse moves before a press drags
const int kWheelStep = 60;     // screen pixels a notch of the wheel scrolls

}  // namespace

bool EditorWindow::isOnSelection(const LevelPoint& point) const {
    const std::vector<int> found = editor.piecesAt(point.x, point.y);
    return std::any_of(found.begin(), found.end(), [this](int index) { return editor.isSelected(index); });
}

void EditorWindow::handleMouse() {
    const int x = mouse_x;
    const int y = mouse_y;
    const int buttons = mouse_b;
    const int pressed = buttons & ~previousButtons;
    const int released = previousButtons & ~buttons;
    previousButtons = buttons;
    const int wheel = mouse_z - previousWheel;
    previousWheel = mouse_z;
    if (prompt || form || helpShown) {
        mouseMode = MOUSE_IDLE;
        return;
    }
    if (wheel != 0 && x >= kViewWidth) {
        palette.scrollBy(-wheel, kViewHeight / PicturePalette::kRowHeight);
    } else if (wheel != 0 && (key_shifts & KB_CTRL_FLAG)) {
        zoomTo(camera.zoomShift - wheel, x, y);
    } else if (wheel != 0) {
        const long long distance = -static_cast<long long>(wheel) * (kWheelStep << camera.zoomShift);
        (key_shifts & KB_SHIFT_FLAG) ? scrollBy(distance, 0) : scrollBy(0, distance);
    }
    if ((pressed & 4) && isOverView(x, y)) {
        mouseMode = MOUSE_PANNING;
        pressX = x;
        pressY = y;
        panCameraX = camera.cameraX;
        panCameraY = camera.cameraY;
    }
    if (pressed & 2) {
        palette.clearChoice();
    }
    if (pressed & 1) {
        if (x >= kViewWidth && y < kViewHeight) {
            chooseInPalette(y);
        } else if (isOverView(x, y)) {
            pressX = x;
            pressY = y;
            pressInView(levelAt(x, y), key_shifts & KB_SHIFT_FLAG);
        }
    }
    if (buttons & 5) {
        moveWhilePressed(x, y);
    }
    if (released & 5) {
        releaseInView();
    }
}

void EditorWindow::chooseInPalette(int y) {
    const int row = palette.rowAt(y);
    if (row < 0) {
        return;
    }
    const std::string& name = palette.getNames()[static_cast<size_t>(row)];
    if (name == palette.getChosen()) {
        palette.clearChoice();
    } else {
        palette.choose(name, kViewHeight / PicturePalette::kRowHeight);
    }
}

void EditorWindow::pressInView(const LevelPoint& point, bool shift) {
    if (!palette.getChosen().empty()) {
        const LevelPoint corner = brushCorner(point);
        if (!editor.place(palette.getChosen(), corner.x, corner.y)) {
            say("Not placed: a level holds at most 100000 pieces");
        }
        return;
    }
    const std::vector<int> found = editor.piecesAt(point.x, point.y);
    if (shift && !found.empty()) {
        editor.clickAt(point.x, point.y, true);
        return;
    }
    mouseMode = MOUSE_PRESSED;
    const bool onSelection = isOnSelection(point);
    // A press on a piece not selected selects it at once, so that it can be dragged; a click on
    // the selection waits for the release, which goes on to the piece beneath.
    clickOnRelease = onSelection || found.empty();
    if (!clickOnRelease) {
        editor.clickAt(point.x, point.y, false);
    }
}

void EditorWindow::moveWhilePressed(int screenX, int screenY) {
    const int dx = screenX - pressX;
    const int dy = screenY - pressY;
    if (mouseMode == MOUSE_PANNING) {
        camera.cameraX = panCameraX - (static_cast<long long>(dx) << camera.zoomShift);
        camera.cameraY = panCameraY - (static_cast<long long>(dy) << camera.zoomShift);
        return;
    }
    if (mouseMode == MOUSE_PRESSED && std::max(std::abs(dx), std::abs(dy)) >= kDragThreshold) {
        if (isOnSelection(levelAt(pressX, pressY))) {
            const Grevan::MapPiece& anchor =
                editor.getDocument().pieces[static_cast<size_t>(editor.getSelection()[0])];
            anchorOrigin = {anchor.x, anchor.y};
            editor.beginDrag();
            mouseMode = MOUSE_DRAGGING;
        } else {
            mouseMode = MOUSE_BANDING;
        }
    }
    const LevelPoint start = levelAt(pressX, pressY);
    const LevelPoint now = levelAt(screenX, screenY);
    if (mouseMode == MOUSE_DRAGGING) {
        // The first selected piece lands on the grid; the others keep their distance to it.
        editor.dragBy(snapped(anchorOrigin.x + now.x - start.x) - anchorOrigin.x,
                      snapped(anchorOrigin.y + now.y - start.y) - anchorOrigin.y);
    } else if (mouseMode == MOUSE_BANDING) {
        options.band = LevelRect{std::min(start.x, now.x), std::min(start.y, now.y),
                                 std::max(start.x, now.x) + 1, std::max(start.y, now.y) + 1};
    }
}

void EditorWindow::releaseInView() {
    const LevelPoint start = levelAt(pressX, pressY);
    if (mouseMode == MOUSE_DRAGGING) {
        editor.endDrag();
    } else if (mouseMode == MOUSE_BANDING && options.band) {
        editor.selectWithin(*options.band, key_shifts & KB_SHIFT_FLAG);
    } else if (mouseMode == MOUSE_PRESSED && clickOnRelease) {
        editor.clickAt(start.x, start.y, false);
    }
    options.band.reset();
    mouseMode = MOUSE_IDLE;
}

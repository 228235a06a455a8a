#pragma once

#include <allegro.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "EditorPrompt.h"
#include "EditorView.h"
#include "MapEditor.h"
#include "PicturePalette.h"
#include "PropertiesForm.h"
#include "ReachLayer.h"
#include "ViewTransform.h"
#include "world/OwnedBitmap.h"

// The editor's window: the level view as large as the game's screen, the picture palette at its
// right and the status lines below. It turns keys and mouse actions into the editor's changes,
// keeps the author's work safe (saving, autosaving, asking before it is thrown away) and starts
// play-tests. Allegro must be set up with a window, the timer, the keyboard and the mouse.
class EditorWindow {
  public:
    // Pixels: the game's screen is 800 x 600; the view is a little wider, so that a level of
    // 3400 pixels fits whole at a quarter.
    static constexpr int kViewWidth = 860;
    static constexpr int kViewHeight = 600;
    static constexpr int kStatusHeight = 40;
    static constexpr int kWidth = kViewWidth + PicturePalette::kWidth;
    static constexpr int kHeight = kViewHeight + kStatusHeight;

    // `game` is the game's binary, which play-tests run.
    explicit EditorWindow(std::string game);

    // Opens the map, or starts a new level when the path is empty; then runs until the author quits.
    void run(const std::string& mapPath);
    // A layer drawn over the pieces, such as an analysis of the level; it reads the level and the
    // start point through getEditor(). Not owned: it must outlive run().
    void addOverlay(LevelOverlay* overlay) { view.addOverlay(overlay); }
    const MapEditor& getEditor() const { return editor; }

  private:
    enum MouseMode { MOUSE_IDLE, MOUSE_PRESSED, MOUSE_DRAGGING, MOUSE_BANDING, MOUSE_PANNING };

    // Files.
    bool openMap(const std::string& path);
    void newMap();
    void showLevel();
    bool save();
    void saveAs(const std::function<void()>& then);
    void autosaveWhenDue();
    std::string autosavePath() const;
    void offerAutosave();
    // Runs the action at once when nothing is unsaved, else after asking whether to save first.
    void unlessUnsaved(const std::function<void()>& action);
    void playTest();

    // Input.
    void handleKey(int scancode, int ascii);
    bool handleCommandKey(int scancode);
    bool handleEditKey(int scancode, bool shift);
    bool handleViewKey(int scancode, bool shift);
    void handleMouse();
    void pressInView(const LevelPoint& point, bool shift);
    bool isOnSelection(const LevelPoint& point) const;
    void moveWhilePressed(int screenX, int screenY);
    void releaseInView();
    void scrollBy(long long dx, long long dy);
    void zoomTo(int zoomShift, int screenX, int screenY);
    // Brings as much of the level into view as fits, centring a level smaller than the view.
    void keepLevelInView();
    void chooseInPalette(int y);

    // What the mouse points at and what a press there places.
    LevelPoint levelAt(int screenX, int screenY) const;
    bool isOverView(int screenX, int screenY) const;
    int gridStep() const;
    // A nudge with Shift and a duplicate's offset: one grid step, or a few pixels without a grid.
    int largeStep() const;
    int snapped(int value) const;
    LevelPoint brushCorner(const LevelPoint& point);
    // The start point, or else the point under the mouse.
    LevelPoint playStart();
    // The level point under the mouse, or at the middle of the view when the mouse is elsewhere.
    LevelPoint pointed() const;
    // The level point under the mouse while it is over the view and no prompt or form has it.
    std::optional<LevelPoint> pointedInView() const;

    // Drawing.
    void redraw();
    void drawStatus(BITMAP* target);
    std::string describeSelection();
    void drawHelp(BITMAP* target) const;
    void updateTitle();
    void say(const std::string& text) {
        message = text;
        changed = true;
    }

    std::string game;
    EditorView view;
    MapEditor editor;
    ReachLayer reach{editor, view};
    PicturePalette palette;
    std::string mapPath;  // empty for a level never saved
    Grevan::OwnedBitmap buffer;

    ViewTransform camera;
    ViewOptions options;
    size_t gridIndex = 2;
    bool helpShown = false;
    bool quitting = false;
    std::string message;
    std::string shownTitle;
    bool changed = true;  // since the last redraw
    std::optional<EditorPrompt> prompt;
    std::optional<PropertiesForm> form;

    MouseMode mouseMode = MOUSE_IDLE;
    int previousButtons = 0;
    int previousWheel = 0;
    int pressX = 0;  // screen pixels where the button went down
    int pressY = 0;
    LevelPoint anchorOrigin;  // the first selected piece's place when a drag began
    bool clickOnRelease = false;
    long long panCameraX = 0;
    long long panCameraY = 0;

    std::chrono::steady_clock::time_point lastAutosave;
    long autosavedRevision = 0;
};

#pragma once

#include <allegro.h>

#include <atomic>

#include "core/InputSystem.h"
#include "core/Screen.h"
#include "scripting/ScriptSystem.h"
#include "ui/SoundSystem.h"

namespace Grevan {

// How the game starts Allegro, chosen once at construction. A display start opens the
// system driver with timer, keyboard, mouse and sound; a headless start gives memory
// bitmaps only, for tests and tools that must run without a window.
enum class StartMode { DISPLAY, HEADLESS };

// The one game: it owns every system as a member, runs the main loop and ends it.
class Game {
  public:
    explicit Game(StartMode mode = StartMode::DISPLAY);
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    static Game* getInstance() { return instance; }

    // Opens the window, runs the game until it ends and tidies up; false when no video mode
    // could be set.
    bool start();
    void gameLoop();
    void endGame() { gameEnded = true; }
    bool isRunning() const { return !gameEnded; }

    void lockControl();
    void unlockControl() { controlAllowed = true; }
    bool canControl() const { return controlAllowed; }

    StartMode getStartMode() const { return startMode; }
    Screen& getScreen() { return screen; }
    InputSystem& getInputSystem() { return inputSystem; }
    SoundSystem& getSoundSystem() { return soundSystem; }
    ScriptSystem& getScriptSystem() { return scriptSystem; }

  private:
    void drawStatusLines(BITMAP* buffer, int framesLastSecond);

    static Game* instance;

    Screen screen;
    InputSystem inputSystem;
    SoundSystem soundSystem;
    ScriptSystem scriptSystem;
    StartMode startMode;
    // Read and written by both threads without the game lock.
    std::atomic<bool> gameEnded{false};
    std::atomic<bool> controlAllowed{false};
};

}  // namespace Grevan

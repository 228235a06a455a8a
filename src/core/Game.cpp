#include "core/Game.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>

#include "core/FramePacer.h"
#include "core/GameLock.h"

namespace Grevan {

Game* Game::instance = nullptr;

Game::Game(StartMode mode) : startMode(mode) {
    // No member may call Allegro before this point: the library starts only now.
    // Without a display the system driver cannot start; the game then runs headless, where
    // setting a video mode fails cleanly and start() reports it.
    if (mode == StartMode::DISPLAY && install_allegro(SYSTEM_AUTODETECT, &errno, atexit) != 0) {
        startMode = StartMode::HEADLESS;
    }
    if (startMode == StartMode::DISPLAY) {
        install_timer();
        inputSystem.initialize();
    } else {
        install_allegro(SYSTEM_NONE, &errno, atexit);
        set_color_depth(32);
    }
    // Without a sound card the game runs silently; initialize has said why.
    soundSystem.initialize();
    instance = this;
    srand(time(nullptr));
    initializeLock();
}

Game::~Game() {
    // Bitmaps cannot be freed once Allegro is gone.
    screen.releasePages();
    allegro_exit();
    destroyLock();
    if (instance == this) {
        instance = nullptr;
    }
}

bool Game::start() {
    if (!screen.setVideoMode(800, 600, 32) && !screen.setVideoMode(640, 480, 32)) {
        return false;
    }
    gameLoop();
    return true;
}

void Game::gameLoop() {
    FramePacer pacer(time(nullptr));
    while (!gameEnded) {
        // Escape ends the game after the frame in hand.
        if (key[KEY_ESC]) {
            gameEnded = true;
        }
        pacer.beginFrame(time(nullptr));
        BITMAP* buffer = screen.getBufferPage();

        lockGame();
        unlockGame();

        drawStatusLines(buffer, pacer.getFramesLastSecond());
        screen.flip();
        // A negative delay becomes a very long sleep; the pacing never lets a healthy machine
        // get there.
        rest(static_cast<unsigned int>(pacer.getDelay()));
    }
}

void Game::drawStatusLines(BITMAP* buffer, int framesLastSecond) {
    int white = makecol(255, 255, 255);
    textprintf_ex(buffer, font, 20, 0, white, -1, "FPS: %d  Objects: %d", framesLastSecond, 0);
}

void Game::lockControl() {
    controlAllowed = false;
}

}  // namespace Grevan

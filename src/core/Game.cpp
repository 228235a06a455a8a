#include "core/Game.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "actors/Player.h"
#include "core/FramePacer.h"
#include "core/GameLock.h"
#include "core/MapFile.h"

#if defined(__SANITIZE_ADDRESS__)
#define GREVAN_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define GREVAN_ADDRESS_SANITIZER 1
#endif
#endif

#ifdef GREVAN_ADDRESS_SANITIZER
// A picture file whose header claims an absurd size makes Allegro ask for more memory than
// exists; it must get null and report the file, as in a plain build, not end the process.
extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}
#endif

namespace Grevan {

Game* Game::instance = nullptr;

Game::Game(StartMode mode) : startMode(mode) {
    // No member may call Allegro before this point: the library starts only now.
    // Names read from files reach Allegro's messages; read as UTF-8, some byte sequences send its
    // formatter into an endless loop, so all text is taken as plain 8-bit characters.
    set_uformat(U_ASCII);
    // Without a display the system driver cannot start; the game then runs headless, where
    // setting a video mode fails cleanly and start() reports it.
    if (mode == StartMode::DISPLAY && install_allegro(SYSTEM_AUTODETECT, &errno, atexit) != 0) {
        const char* display = getenv("DISPLAY");
        fprintf(stderr, "No window system on display \"%s\": %s\n", display ? display : "",
                allegro_error[0] ? allegro_error : "it cannot be opened");
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
    // The script thread must not outlive the world it acts on.
    endGame();
    scriptSystem.stop();
    // Bitmaps cannot be freed once Allegro is gone, so the world and the pages go first. The
    // game itself is never deleted; this serves tests and tools.
    objectSystem.cleanupObjects();
    pictureCache.clear();
    blockSystem.cleanup();
    robot.reset();
    dialog.release();
    infoBar.release();
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
    mapSystem.setClientWidth(screen.getWidth());
    mapSystem.setClientHeight(screen.getHeight());
    infoBar.initialize();
    infoBar.show();
    createRobot();
    scriptSystem.start();
    gameLoop();
    scriptSystem.stop();
    robot.reset();
    return true;
}

void Game::createRobot() {
    robot = std::make_unique<Robot>();
    robot->setX(10);
    robot->setY(150);
}

void Game::gameLoop() {
    FramePacer pacer(time(nullptr));
    while (!gameEnded) {
        // Escape ends the game after the frame in hand.
        if (key[KEY_ESC]) {
            gameEnded = true;
        }
        pacer.beginFrame(time(nullptr));
        // Input only queues events; it is read outside the game lock.
        inputSystem.doInput();
        playFrame(screen.getBufferPage(), pacer.getFramesLastSecond());
        screen.flip();
        // On a machine too slow for the frame rate the delay keeps falling below 0; such a frame
        // does not sleep (handed to rest as it is, it would be a sleep of some 49 days).
        rest(static_cast<unsigned int>(std::max(0, pacer.getDelay())));
    }
}

void Game::playFrame(BITMAP* buffer, int framesLastSecond) {
    lockGame();
    eventSystem.handleEvents();
    objectSystem.moveObjects();
    aimSystem.move();
    mapSystem.draw(buffer);
    objectSystem.drawObjects(buffer, mapSystem.getClientX(), mapSystem.getClientY());
    infoBar.draw(buffer);
    if (robot && robot->isVisible()) {
        robot->draw(buffer, 0, 0);
    }
    dialog.move();
    dialog.draw(buffer, mapSystem.getClientX(), mapSystem.getClientY());
    // The sight is hidden while a bubble shows.
    if (!dialog.isVisible()) {
        aimSystem.draw(buffer);
    }
    objectSystem.removeDeadObjects();
    if (mainPlayer) {
        mapSystem.moveClientTo(mainPlayer->getCentralX(), mainPlayer->getCentralY());
    }
    // Read under the lock: the script thread may change the world as soon as it is released.
    StatusFigures figures{framesLastSecond, objectSystem.getObjectCount(), mainPlayer != nullptr};
    if (mainPlayer) {
        figures.kills = mainPlayer->getKills();
        figures.headshots = mainPlayer->getHeadshots();
        figures.x = mainPlayer->getCentralX();
        figures.y = mainPlayer->getCentralY();
    }
    unlockGame();
    drawStatusLines(buffer, figures);
}

void Game::drawStatusLines(BITMAP* buffer, const StatusFigures& figures) {
    int white = makecol(255, 255, 255);
    textprintf_ex(buffer, font, 20, 0, white, kClearTextBackground, "FPS: %d  Objects: %d",
                  figures.framesLastSecond, figures.objectCount);
    if (figures.hasMainPlayer) {
        textprintf_ex(buffer, font, 200, 0, white, kClearTextBackground,
                      "Kills: %d  Headshots: %d  X: %d  Y: %d", figures.kills, figures.headshots, figures.x,
                      figures.y);
    }
}

Player* Game::addPlayer(std::unique_ptr<Player> player) {
    Player* link = player.get();
    objectSystem.addObject(std::move(player));
    players.push_back(link);
    return link;
}

Player* Game::getPlayer(int playerId) {
    for (Player* p : players) {
        if (p->getPlayerId() == playerId) {
            return p;
        }
    }
    return nullptr;
}

void Game::loadMap(const char* path) {
    MapFile map;
    if (!map.read(path)) {
        printf("%s\n", map.getRefusal().c_str());
        fflush(stdout);
        return;
    }
    // The players are objects: the registry deletes them.
    players.clear();
    dialog.hide();
    mainPlayer = nullptr;
    eventSystem.clear();
    objectSystem.cleanupObjects();
    // Only the level's objects show the cached pictures, and they are gone.
    pictureCache.clear();
    mapSystem.initialize(map.getWidth(), map.getHeight());
    blockSystem.initialize(map.getWidth(), map.getHeight());
    mapSystem.setBackgroundColor(map.getRed(), map.getGreen(), map.getBlue());
    for (const MapPiece& piece : map.getPieces()) {
        auto o = std::make_unique<Object>();
        o->setX(piece.x);
        o->setY(piece.y);
        o->setLayer(static_cast<MapLayer>(piece.layer));
        o->showSharedImage(pictureCache.get("image/object/" + piece.image));
        o->setCollidable(piece.solid);
        o->show();
        objectSystem.addObject(std::move(o));
    }
}

void Game::lockControl() {
    controlAllowed = false;
    if (mainPlayer) {
        mainPlayer->stopMoving();
    }
}

}  // namespace Grevan

#pragma once

#include <allegro.h>

#include <atomic>
#include <memory>
#include <vector>

#include "actors/AimSystem.h"
#include "actors/Robot.h"
#include "core/AISystem.h"
#include "core/ClientNetwork.h"
#include "core/EventSystem.h"
#include "core/InputSystem.h"
#include "core/MapSystem.h"
#include "core/MenuSystem.h"
#include "core/Screen.h"
#include "core/ServerNetwork.h"
#include "scripting/ScriptSystem.h"
#include "ui/Dialog.h"
#include "ui/InfoBar.h"
#include "ui/SoundSystem.h"
#include "world/BlockSystem.h"
#include "world/ObjectSystem.h"
#include "world/PictureCache.h"

namespace Grevan {

class Player;

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
    // One frame from taking the game lock (handling the input events) to the status lines,
    // drawn into buffer.
    void playFrame(BITMAP* buffer, int framesLastSecond);
    void endGame() { gameEnded = true; }
    bool isRunning() const { return !gameEnded; }

    void lockControl();
    void unlockControl() { controlAllowed = true; }
    bool canControl() const { return controlAllowed; }

    // Throws the level away and builds the one the map file describes. A file that cannot be
    // opened, or whose level size or piece count would exhaust memory, is refused with one line
    // on standard output and the level stays as it was.
    void loadMap(const char* path);

    StartMode getStartMode() const { return startMode; }
    Screen& getScreen() { return screen; }
    InputSystem& getInputSystem() { return inputSystem; }
    MapSystem& getMapSystem() { return mapSystem; }
    EventSystem& getEventSystem() { return eventSystem; }
    ClientNetwork& getClientNetwork() { return clientNetwork; }
    ServerNetwork& getServerNetwork() { return serverNetwork; }
    ObjectSystem& getObjectSystem() { return objectSystem; }
    SoundSystem& getSoundSystem() { return soundSystem; }
    AISystem& getAISystem() { return aiSystem; }
    MenuSystem& getMenuSystem() { return menuSystem; }
    BlockSystem& getBlockSystem() { return blockSystem; }
    AimSystem& getAimSystem() { return aimSystem; }
    ScriptSystem& getScriptSystem() { return scriptSystem; }
    // The current level's pictures: objects of the level show them with Object::showSharedImage.
    PictureCache& getPictureCache() { return pictureCache; }
    InfoBar& getInfoBar() { return infoBar; }
    Dialog& getDialog() { return dialog; }
    // Null before start and after it.
    Robot* getRobot() { return robot.get(); }
    // The guide robot at its place on the screen, hidden until the script shows it.
    void createRobot();

    // Registers the player as an object and lists it; gives it back as a link.
    Player* addPlayer(std::unique_ptr<Player> player);
    // The first player added with that player id; null when none.
    Player* getPlayer(int playerId);
    std::vector<Player*>& getPlayers() { return players; }
    Player* getMainPlayer() { return mainPlayer; }
    // Only names the player; it is not added anywhere.
    void setMainPlayer(Player* player) { mainPlayer = player; }

  private:
    // What the two status lines show, read under the game lock.
    struct StatusFigures {
        int framesLastSecond;
        int objectCount;
        bool hasMainPlayer;
        int kills = 0;
        int headshots = 0;
        int x = 0;
        int y = 0;
    };
    void drawStatusLines(BITMAP* buffer, const StatusFigures& figures);

    static Game* instance;

    Screen screen;
    InputSystem inputSystem;
    MapSystem mapSystem;
    EventSystem eventSystem;
    ClientNetwork clientNetwork;
    ServerNetwork serverNetwork;
    ObjectSystem objectSystem{blockSystem};
    SoundSystem soundSystem;
    AISystem aiSystem;
    MenuSystem menuSystem;
    BlockSystem blockSystem;
    AimSystem aimSystem;
    ScriptSystem scriptSystem;
    PictureCache pictureCache;
    InfoBar infoBar;
    std::vector<Player*> players;  // in order of addPlayer; the registry owns them
    Dialog dialog;
    Player* mainPlayer = nullptr;  // the one the keyboard and mouse control and the camera follows
    StartMode startMode;
    // Read and written by both threads without the game lock.
    std::atomic<bool> gameEnded{false};
    // Outside the object registry: the frame draws it in screen coordinates.
    std::unique_ptr<Robot> robot;
    std::atomic<bool> controlAllowed{false};
};

}  // namespace Grevan

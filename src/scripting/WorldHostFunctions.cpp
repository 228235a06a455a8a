// Host functions: creating, finding and removing world objects.

#include <cstdio>
#include <memory>
#include <string>

#include "actors/AIPlayer.h"
#include "actors/PresentBox.h"
#include "core/Game.h"
#include "scripting/HostAccess.h"
#include "scripting/HostArguments.h"
#include "scripting/HostFunctions.h"

namespace Grevan {

namespace {

// Shows the box, registers it and gives the script its id.
void place(std::unique_ptr<PresentBox> box, VeskVariable& result) {
    box->show();
    result.setInteger(box->getId());
    game->getObjectSystem().addObject(std::move(box));
}

}  // namespace

// addPlayer(isAI, colour, role, name, x, y) gives the new player's id. The last non-AI player
// added is the one the user controls.
void addPlayer(HostStack& stack, VeskVariable& result, int) {
    HostArguments a(stack, HOST_ADD_PLAYER);
    const bool isAI = a.integer(1) != 0;
    const std::string role = a.text(3);
    const std::string name = a.text(4);
    GameLockGuard guard;
    std::unique_ptr<Player> made =
        isAI ? std::make_unique<AIPlayer>(name, role) : std::make_unique<Player>(name, role);
    made->setX(a.integer(5));
    made->setY(a.integer(6));
    made->setColor(a.integer(2));
    Player* p = game->addPlayer(std::move(made));
    if (!isAI) {
        game->setMainPlayer(p);
    }
    result.setInteger(p->getId());
}

// Any object, not only a player.
void showObject(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SHOW_OBJECT);
    const int id = a.integer(1);
    GameLockGuard guard;
    if (Object* o = game->getObjectSystem().getObjectById(id)) {
        o->show();
    } else {
        printf("Object not found %d\n", id);
        fflush(stdout);
    }
}

void setPlayerHealth(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SET_PLAYER_HEALTH);
    withPlayer(a.integer(1), [&](Player& p) { p.setHealth(a.integer(2)); });
}

// addPresent(picture, x, y): a gift box with the picture "image/object/<picture>.bmp".
void addPresent(HostStack& stack, VeskVariable& result, int) {
    HostArguments a(stack, HOST_ADD_PRESENT);
    const std::string picture = "image/object/" + a.text(1) + ".bmp";
    GameLockGuard guard;
    auto box = std::make_unique<PresentBox>();
    box->setX(a.integer(2));
    box->setY(a.integer(3));
    // Boxes naming one picture share it for the life of the level.
    box->showSharedImage(Game::getInstance()->getPictureCache().get(picture));
    place(std::move(box), result);
}

// addHiddenPresent(x, y, width, height): a gift box without a picture, found by touch.
void addHiddenPresent(HostStack& stack, VeskVariable& result, int) {
    HostArguments a(stack, HOST_ADD_HIDDEN_PRESENT);
    const int x = a.integer(1);
    const int y = a.integer(2);
    const int width = a.integer(3);
    const int height = a.integer(4);
    GameLockGuard guard;
    auto box = std::make_unique<PresentBox>();
    box->setX(x);
    box->setY(y);
    box->setWidth(width);
    box->setHeight(height);
    printf("add hidden present %d, %d, %d, %d\n", x, y, width, height);
    fflush(stdout);
    place(std::move(box), result);
}

// setPlayerAIMode(player, mode): 1 puts an opponent under the script's control, 0 lets it decide
// for itself. The user's player is left alone.
void setPlayerAIMode(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SET_PLAYER_AI_MODE);
    withPlayer(a.integer(1), [&](Player& p) {
        if (AIPlayer* opponent = dynamic_cast<AIPlayer*>(&p)) {
            opponent->setControlMode(a.integer(2) != 0);
        }
    });
}

void die(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_DIE);
    withPlayer(a.integer(1), [](Player& p) { p.die(); });
}

// The centre of the player; undefined for an id that is not a player's.
void playerX(HostStack& stack, VeskVariable& result, int) {
    HostArguments a(stack, HOST_PLAYER_X);
    withPlayer(a.integer(1), [&](Player& p) { result.setInteger(p.getCentralX()); });
}

void playerY(HostStack& stack, VeskVariable& result, int) {
    HostArguments a(stack, HOST_PLAYER_Y);
    withPlayer(a.integer(1), [&](Player& p) { result.setInteger(p.getCentralY()); });
}

}  // namespace Grevan

// Host functions: the screen, the speech bubbles, the robot, time and the game itself.

#include <allegro.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "actors/Player.h"
#include "actors/Robot.h"
#include "core/Game.h"
#include "scripting/HostAccess.h"
#include "scripting/HostArguments.h"
#include "scripting/HostFunctions.h"
#include "ui/Dialog.h"

namespace Grevan {

namespace {

// Returns once the speech bubble has gone: closed by a click, or hidden after its time.
void waitForSilence() {
    waitWhile([] { return game->getDialog().isVisible(); });
}

}  // namespace

// message(any number): shows the arguments' texts, joined, in a message box; under a display
// the script waits until it is closed.
void message(HostStack& stack, VeskVariable&, int argumentCount) {
    std::string text;
    for (std::size_t i = stack.size() - static_cast<std::size_t>(argumentCount); i < stack.size(); ++i) {
        text += stack[i].toText();
    }
    allegro_message("%s", text.c_str());
}

void command(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SYSTEM);
    // What the script printed comes before what the command prints.
    fflush(stdout);
    // The command's exit status is not the script's concern.
    [[maybe_unused]] int status = std::system(a.text(1).c_str());
}

void loadMap(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_LOAD_MAP);
    const std::string path = a.text(1);
    GameLockGuard guard;
    game->loadMap(path.c_str());
}

void fadeIn(HostStack&, VeskVariable&, int) {
    game->getScreen().fadeIn();
    waitWhile([] { return game->getScreen().getFadeMode() == FADE_IN; });
}

void fadeOut(HostStack&, VeskVariable&, int) {
    game->getScreen().fadeOut();
    waitWhile([] { return game->getScreen().getFadeMode() == FADE_OUT; });
}

// delay(milliseconds): nothing for zero or less.
void delay(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_DELAY);
    sleepWhileRunning(a.integer(1));
}

void endgame(HostStack&, VeskVariable&, int) {
    game->endGame();
}

// say(player, text): a bubble in the player's colour above its head.
void say(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SAY);
    const std::string text = a.text(2);
    {
        GameLockGuard guard;
        Player* p = findPlayer(a.integer(1));
        if (!p) {
            return;
        }
        game->getDialog()
            .hide()
            .setPosition(p->getCentralX(), p->getY())
            .setText(text)
            .setColor(p->getColor())
            .show();
    }
    waitForSilence();
}

// robotSay(text): a red bubble beside the robot, which stands in screen coordinates.
void robotSay(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_ROBOT_SAY);
    const std::string text = a.text(1);
    {
        GameLockGuard guard;
        Robot* robot = game->getRobot();
        if (!robot) {
            return;
        }
        MapSystem& map = game->getMapSystem();
        game->getDialog()
            .hide()
            .setPosition(robot->getX() + robot->getWidth() + map.getClientX(),
                         robot->getCentralY() + map.getClientY())
            .setText(text)
            .setColor(makecol(255, 0, 0))
            .show();
    }
    waitForSilence();
}

void showRobot(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_SHOW_ROBOT);
    GameLockGuard guard;
    if (Robot* robot = game->getRobot()) {
        a.integer(1) != 0 ? robot->show() : robot->hide();
    }
}

// lockControl(flag): 1 takes the keyboard and mouse away from the user (the main player stops
// where it is), 0 gives them back.
void lockControl(HostStack& stack, VeskVariable&, int) {
    HostArguments a(stack, HOST_LOCK_CONTROL);
    if (a.integer(1) != 0) {
        GameLockGuard guard;
        game->lockControl();
    } else {
        game->unlockControl();
    }
}

}  // namespace Grevan

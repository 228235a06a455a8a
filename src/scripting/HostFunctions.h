#pragma once

#include <vector>

#include "script/VeskVariable.h"

// The game's host functions, the vocabulary of a level script (HostFunctionTable.h names them);
// print and isNull are in BasicHostFunctions.h. Each has the engine's host-function signature and runs on the
// script thread. Except message, which takes any number of arguments, each reads a fixed number of them at
// fixed depths from the top of the stack (HostArguments). Positions are world pixels, y pointing down; a
// player id is an object id, and an id that is not a player's makes a player function do nothing. Functions
// that touch the world hold the game lock while they do; none holds it while it waits.
namespace Grevan {

using HostStack = std::vector<VeskVariable>;

// SceneHostFunctions.cpp: the screen, the speech bubbles, the robot, time and the game itself.
void message(HostStack& stack, VeskVariable& result, int argumentCount);
// system: hands its text to the command shell.
void command(HostStack& stack, VeskVariable& result, int argumentCount);
void loadMap(HostStack& stack, VeskVariable& result, int argumentCount);
void fadeIn(HostStack& stack, VeskVariable& result, int argumentCount);
void fadeOut(HostStack& stack, VeskVariable& result, int argumentCount);
void delay(HostStack& stack, VeskVariable& result, int argumentCount);
void endgame(HostStack& stack, VeskVariable& result, int argumentCount);
void say(HostStack& stack, VeskVariable& result, int argumentCount);
void robotSay(HostStack& stack, VeskVariable& result, int argumentCount);
void showRobot(HostStack& stack, VeskVariable& result, int argumentCount);
void lockControl(HostStack& stack, VeskVariable& result, int argumentCount);

// WorldHostFunctions.cpp: creating, finding and removing world objects.
void addPlayer(HostStack& stack, VeskVariable& result, int argumentCount);
void showObject(HostStack& stack, VeskVariable& result, int argumentCount);
void setPlayerHealth(HostStack& stack, VeskVariable& result, int argumentCount);
void addPresent(HostStack& stack, VeskVariable& result, int argumentCount);
void addHiddenPresent(HostStack& stack, VeskVariable& result, int argumentCount);
void setPlayerAIMode(HostStack& stack, VeskVariable& result, int argumentCount);
void die(HostStack& stack, VeskVariable& result, int argumentCount);
void playerX(HostStack& stack, VeskVariable& result, int argumentCount);
void playerY(HostStack& stack, VeskVariable& result, int argumentCount);

// PlayerHostFunctions.cpp: weapons and orders to a player.
void addPlayerWeapon(HostStack& stack, VeskVariable& result, int argumentCount);
void switchWeapon(HostStack& stack, VeskVariable& result, int argumentCount);
void playerDoAim(HostStack& stack, VeskVariable& result, int argumentCount);
void playerDoFire(HostStack& stack, VeskVariable& result, int argumentCount);
void playerDoMove(HostStack& stack, VeskVariable& result, int argumentCount);
void playerDoStop(HostStack& stack, VeskVariable& result, int argumentCount);
void waitForPlayerAction(HostStack& stack, VeskVariable& result, int argumentCount);

}  // namespace Grevan

#pragma once

#include "script/VeskScript.h"

// Registers every game host function but "print" and "isNull" as a stand-in that writes one line
// naming the call and its arguments to standard error, e.g. addPlayer(0, 255, "soldier", "Hero"),
// and returns an undefined value. A level script then loads and can be dry-run without the game.
void registerStandInHostFunctions(VeskScript& script);

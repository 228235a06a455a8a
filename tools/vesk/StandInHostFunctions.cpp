#include "StandInHostFunctions.h"

#include <cstddef>
#include <iostream>
#include <utility>

namespace {

// In the order the game's script host registers them.
constexpr const char* kStandInNames[] = {
    "message",
    "system",
    "loadMap",
    "addPlayer",
    "showObject",
    "setPlayerHealth",
    "fadeIn",
    "fadeOut",
    "delay",
    "endgame",
    "addPlayerWeapon",
    "switchWeapon",
    "playerDoAim",
    "playerDoFire",
    "playerDoMove",
    "playerDoStop",
    "say",
    "robotSay",
    "waitForPlayerAction",
    "showRobot",
    "lockControl",
    "addPresent",
    "addHiddenPresent",
    "setPlayerAIMode",
    "die",
    "playerX",
    "playerY",
};

void reportCall(const char* name, std::vector<VeskVariable>& stack, int argumentCount) {
    std::string line = name;
    line += '(';
    for (std::size_t i = stack.size() - static_cast<std::size_t>(argumentCount); i < stack.size(); ++i) {
        const VeskVariable& argument = stack[i];
        if (i + static_cast<std::size_t>(argumentCount) != stack.size()) {
            line += ", ";
        }
        if (argument.type == VeskVariable::TypeString) {
            line += '"' + argument.stringValue() + '"';
        } else {
            line += argument.toText();
        }
    }
    line += ")\n";
    std::cerr << line;
}

// One function per name, since a host function is a plain function pointer that does not know
// the name it was registered under.
template <std::size_t Index>
void standIn(std::vector<VeskVariable>& stack, VeskVariable&, int argumentCount) {
    reportCall(kStandInNames[Index], stack, argumentCount);
}

template <std::size_t... Index>
void registerAll(VeskScript& script, std::index_sequence<Index...>) {
    (script.addFunction(kStandInNames[Index], &standIn<Index>), ...);
}

}  // namespace

void registerStandInHostFunctions(VeskScript& script) {
    registerAll(script, std::make_index_sequence<std::size(kStandInNames)>());
}

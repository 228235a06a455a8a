#include "StandInHostFunctions.h"

#include <cstddef>
#include <iostream>
#include <map>
#include <string>
#include <utility>

#include "HostFunctionTable.h"
#include "core/MapFile.h"
#include "scripting/BasicHostFunctions.h"
#include "scripting/HostArguments.h"

namespace {

struct Position {
    int x;
    int y;
};

// The dry run's world: what the game would know of the objects the script made. Host functions
// are plain function pointers, so it lives here; the dry run has one script on one thread.
struct DryRunWorld {
    long callsLeft = 0;
    long maxCalls = 0;
    int nextObjectId = 1;
    std::map<int, Position> players;
};

DryRunWorld world;

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

int newObject(VeskVariable& result) {
    const int id = world.nextObjectId++;
    result.setInteger(id);
    return id;
}

void followTheGame(const std::string& name, std::vector<VeskVariable>& stack, VeskVariable& result) {
    if (name == "addPlayer") {
        const Grevan::HostArguments arguments(stack, 6);
        world.players[newObject(result)] = {arguments.integer(5), arguments.integer(6)};
    } else if (name == "addPresent" || name == "addHiddenPresent") {
        newObject(result);
    } else if (name == "loadMap") {
        // The game refuses a map it cannot use and keeps the level; a new level has no players.
        Grevan::MapFile map;
        if (map.read(Grevan::HostArguments(stack, 1).text(1).c_str())) {
            world.players.clear();
        } else {
            std::cout << map.getRefusal() << std::endl;
        }
    } else if (name == "playerDoMove") {
        const Grevan::HostArguments arguments(stack, 3);
        auto player = world.players.find(arguments.integer(1));
        if (player != world.players.end()) {
            player->second.x = arguments.integer(2);
        }
    } else if (name == "waitForPlayerAction") {
        const Grevan::HostArguments arguments(stack, 1);
        if (!world.players.count(arguments.integer(1))) {
            std::cerr << "vesk: " << arguments.text(1)
                      << " is no player: the game would wait here for ever\n";
        }
    } else if (name == "playerX" || name == "playerY") {
        auto player = world.players.find(Grevan::HostArguments(stack, 1).integer(1));
        if (player != world.players.end()) {
            result.setInteger(name == "playerX" ? player->second.x : player->second.y);
        }
    }
}

// One function per name, since a host function is a plain function pointer that does not know
// the name it was registered under.
template <std::size_t Index>
void standIn(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount) {
    if (world.callsLeft-- <= 0) {
        throw HostCallLimitReached{world.maxCalls};
    }
    const std::string name = kHostFunctions[Index].name;
    if (name == "print") {
        Grevan::print(stack, result, argumentCount);
    } else if (name == "isNull") {
        Grevan::isNull(stack, result, argumentCount);
    } else {
        reportCall(kHostFunctions[Index].name, stack, argumentCount);
        followTheGame(name, stack, result);
    }
}

template <std::size_t... Index>
void registerAll(VeskScript& script, std::index_sequence<Index...>) {
    (script.addFunction(kHostFunctions[Index].name, &standIn<Index>), ...);
}

}  // namespace

void registerStandInHostFunctions(VeskScript& script, long maxCalls) {
    world = DryRunWorld();
    world.callsLeft = maxCalls;
    world.maxCalls = maxCalls;
    registerAll(script, std::make_index_sequence<kHostFunctionCount>());
}

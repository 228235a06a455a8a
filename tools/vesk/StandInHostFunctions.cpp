#include "StandInHostFunctions.h"

#include <cstddef>
#include <iostream>
#include <map>
#include <string>
#include <utility>

#include "HostFunctionTable.h"
#include "core/MapFile.h"
#include "scripting/BasicHostFunctions.h"

namespace {

struct Position {
    VeskVariable x;
    VeskVariable y;
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

// Argument `k` (from 1) of a function that reads `arity`, where the game reads it: the entry
// arity - k below the top, whatever the script passed. Beneath the stack's bottom it is undefined.
VeskVariable argument(const std::vector<VeskVariable>& stack, int arity, int k) {
    const std::size_t depth = static_cast<std::size_t>(arity - k) + 1;
    return depth <= stack.size() ? stack[stack.size() - depth] : VeskVariable();
}

int newObject(VeskVariable& result) {
    const int id = world.nextObjectId++;
    result.setInteger(id);
    return id;
}

void followTheGame(const std::string& name, std::vector<VeskVariable>& stack, VeskVariable& result) {
    if (name == "addPlayer") {
        const int id = newObject(result);
        world.players[id] = {argument(stack, 6, 5), argument(stack, 6, 6)};
    } else if (name == "addPresent" || name == "addHiddenPresent") {
        newObject(result);
    } else if (name == "playerDoMove") {
        auto player = world.players.find(argument(stack, 3, 1).getInteger());
        if (player != world.players.end()) {
            player->second.x = argument(stack, 3, 2);
        }
    } else if (name == "loadMap") {
        // The game refuses a map it cannot use and keeps the level; a new level has no players.
        Grevan::MapFile map;
        VeskVariable path = argument(stack, 1, 1);
        if (map.read(path.getString().c_str())) {
            world.players.clear();
        } else {
            std::cout << map.getRefusal() << std::endl;
        }
    } else if (name == "waitForPlayerAction") {
        const VeskVariable id = argument(stack, 1, 1);
        if (!world.players.count(id.getInteger())) {
            std::cerr << "vesk: " << id.toText() << " is no player: the game would wait here for ever\n";
        }
    } else if (name == "playerX" || name == "playerY") {
        auto player = world.players.find(argument(stack, 1, 1).getInteger());
        if (player != world.players.end()) {
            // The game's value is an integer whatever the script gave.
            const VeskVariable& given = name == "playerX" ? player->second.x : player->second.y;
            result.setInteger(given.getInteger());
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

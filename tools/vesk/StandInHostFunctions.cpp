#include "StandInHostFunctions.h"

#include <cstddef>
#include <iostream>
#include <map>
#include <string>
#include <utility>

#include "core/MapFile.h"
#include "scripting/BasicHostFunctions.h"
#include "scripting/HostArguments.h"
#include "scripting/HostFunctionTable.h"

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

void followTheGame(HostFunctionId function, std::vector<VeskVariable>& stack, VeskVariable& result) {
    const Grevan::HostArguments arguments(stack, function);
    switch (function) {
        case HOST_ADD_PLAYER:
            world.players[newObject(result)] = {arguments.integer(5), arguments.integer(6)};
            break;
        case HOST_ADD_PRESENT:
        case HOST_ADD_HIDDEN_PRESENT:
            newObject(result);
            break;
        case HOST_LOAD_MAP: {
            // The game refuses a map it cannot use and keeps the level; a new level has no players.
            Grevan::MapFile map;
            if (map.read(arguments.text(1).c_str())) {
                world.players.clear();
            } else {
                std::cout << map.getRefusal() << std::endl;
            }
            break;
        }
        case HOST_PLAYER_DO_MOVE: {
            auto player = world.players.find(arguments.integer(1));
            if (player != world.players.end()) {
                player->second.x = arguments.integer(2);
            }
            break;
        }
        case HOST_WAIT_FOR_PLAYER_ACTION:
            if (!world.players.count(arguments.integer(1))) {
                std::cerr << "vesk: " << arguments.text(1)
                          << " is no player: the game would wait here for ever\n";
            }
            break;
        case HOST_PLAYER_X:
        case HOST_PLAYER_Y: {
            auto player = world.players.find(arguments.integer(1));
            if (player != world.players.end()) {
                result.setInteger(function == HOST_PLAYER_X ? player->second.x : player->second.y);
            }
            break;
        }
        default:
            break;
    }
}

// One function per host function, since a host function is a plain function pointer that does not
// know the name it was registered under.
template <HostFunctionId Function>
void standIn(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount) {
    if (world.callsLeft-- <= 0) {
        throw HostCallLimitReached{world.maxCalls};
    }
    if (Function == HOST_PRINT) {
        Grevan::print(stack, result, argumentCount);
    } else if (Function == HOST_IS_NULL) {
        Grevan::isNull(stack, result, argumentCount);
    } else {
        reportCall(kHostFunctions[Function].name, stack, argumentCount);
        followTheGame(Function, stack, result);
    }
}

template <std::size_t... Index>
constexpr HostFunctionBindings standIns(std::index_sequence<Index...>) {
    return {{{static_cast<HostFunctionId>(Index), &standIn<static_cast<HostFunctionId>(Index)>}...}};
}

}  // namespace

void registerStandInHostFunctions(VeskScript& script, long maxCalls) {
    world = DryRunWorld();
    world.callsLeft = maxCalls;
    world.maxCalls = maxCalls;
    static constexpr HostFunctionBindings kStandIns =
        standIns(std::make_index_sequence<HOST_FUNCTION_COUNT>());
    static_assert(bindsEveryHostFunctionInOrder(kStandIns), "a stand-in for every host function");
    registerHostFunctions(script, kStandIns);
}

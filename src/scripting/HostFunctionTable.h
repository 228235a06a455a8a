#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <string>

#include "script/VeskSyntaxNode.h"

class VeskScript;

// The host functions, the vocabulary a level script calls, in the order the game registers them.
// A HostFunctionId indexes kHostFunctions.
enum HostFunctionId {
    HOST_PRINT,
    HOST_IS_NULL,
    HOST_MESSAGE,
    HOST_SYSTEM,
    HOST_LOAD_MAP,
    HOST_ADD_PLAYER,
    HOST_SHOW_OBJECT,
    HOST_SET_PLAYER_HEALTH,
    HOST_FADE_IN,
    HOST_FADE_OUT,
    HOST_DELAY,
    HOST_ENDGAME,
    HOST_ADD_PLAYER_WEAPON,
    HOST_SWITCH_WEAPON,
    HOST_PLAYER_DO_AIM,
    HOST_PLAYER_DO_FIRE,
    HOST_PLAYER_DO_MOVE,
    HOST_PLAYER_DO_STOP,
    HOST_SAY,
    HOST_ROBOT_SAY,
    HOST_WAIT_FOR_PLAYER_ACTION,
    HOST_SHOW_ROBOT,
    HOST_LOCK_CONTROL,
    HOST_ADD_PRESENT,
    HOST_ADD_HIDDEN_PRESENT,
    HOST_SET_PLAYER_AI_MODE,
    HOST_DIE,
    HOST_PLAYER_X,
    HOST_PLAYER_Y,
    HOST_FUNCTION_COUNT
};

// What an argument names, where the lint or the list of a script's files needs to know.
enum HostArgumentKind : unsigned char {
    ARGUMENT_VALUE,    // a number or a text used as it is
    ARGUMENT_COMMAND,  // a command for the player's shell
    ARGUMENT_MAP,      // a map file, relative to the game's folder
    ARGUMENT_ROLE,     // a role: the folder image/role/ROLE/
    ARGUMENT_PICTURE,  // a picture: image/object/PICTURE.bmp
};

// A fixed-arity function reads its arguments at fixed depths from the top of the stack whatever
// the script passed, so a call with fewer reads the caller's values beneath.
struct HostFunctionSignature {
    static const int kAnyCount = -1;
    static const int kMaxArity = 6;

    const char* name;
    int arity;
    HostArgumentKind kinds[kMaxArity];  // by argument, from the first; those not listed are values
};

inline constexpr HostFunctionSignature kHostFunctions[] = {
    {"print", HostFunctionSignature::kAnyCount, {}},
    {"isNull", HostFunctionSignature::kAnyCount, {}},
    {"message", HostFunctionSignature::kAnyCount, {}},
    {"system", 1, {ARGUMENT_COMMAND}},
    {"loadMap", 1, {ARGUMENT_MAP}},
    {"addPlayer", 6, {ARGUMENT_VALUE, ARGUMENT_VALUE, ARGUMENT_ROLE}},
    {"showObject", 1, {}},
    {"setPlayerHealth", 2, {}},
    {"fadeIn", 0, {}},
    {"fadeOut", 0, {}},
    {"delay", 1, {}},
    {"endgame", 0, {}},
    {"addPlayerWeapon", 3, {}},
    {"switchWeapon", 2, {}},
    {"playerDoAim", 3, {}},
    {"playerDoFire", 3, {}},
    {"playerDoMove", 3, {}},
    {"playerDoStop", 1, {}},
    {"say", 2, {}},
    {"robotSay", 1, {}},
    {"waitForPlayerAction", 1, {}},
    {"showRobot", 1, {}},
    {"lockControl", 1, {}},
    {"addPresent", 3, {ARGUMENT_PICTURE}},
    {"addHiddenPresent", 4, {}},
    {"setPlayerAIMode", 2, {}},
    {"die", 1, {}},
    {"playerX", 1, {}},
    {"playerY", 1, {}},
};
static_assert(std::size(kHostFunctions) == HOST_FUNCTION_COUNT, "one row for each HostFunctionId");

constexpr int hostArity(HostFunctionId function) {
    return kHostFunctions[function].arity;
}

// The host function a name in any letter case calls, or null.
const HostFunctionSignature* findHostFunction(const std::string& name);

// One side's implementation of a host function: the game's, or the dry run's stand-in.
struct HostFunctionBinding {
    HostFunctionId id;
    VeskHostFunction function;
};

using HostFunctionBindings = std::array<HostFunctionBinding, HOST_FUNCTION_COUNT>;

// Whether `bindings` implement every host function once, in the table's order. Each side checks
// its array with a static_assert. An entry left out is value-initialised to the first id, so the
// order alone finds it; the functions themselves are not compared with null, which the
// sanitizers' instrumentation keeps from being a constant expression.
constexpr bool bindsEveryHostFunctionInOrder(const HostFunctionBindings& bindings) {
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        if (bindings[i].id != static_cast<HostFunctionId>(i)) {
            return false;
        }
    }
    return true;
}

// Adds every host function to the script under its name, in the table's order, with the
// implementations `bindings` gives (checked with bindsEveryHostFunctionInOrder).
void registerHostFunctions(VeskScript& script, const HostFunctionBindings& bindings);

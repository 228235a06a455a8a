#pragma once

#include <cstddef>
#include <iterator>
#include <string>

// The game's 29 host functions, in the order its script host registers them, with the number of
// arguments each reads. A fixed-arity function reads its arguments at fixed depths from the top of
// the stack whatever the script passed, so a call with fewer reads the caller's values beneath.
struct HostFunctionSignature {
    static const int kAnyCount = -1;

    const char* name;
    int arity;
};

inline constexpr HostFunctionSignature kHostFunctions[] = {
    {"print", HostFunctionSignature::kAnyCount},
    {"isNull", HostFunctionSignature::kAnyCount},
    {"message", HostFunctionSignature::kAnyCount},
    {"system", 1},
    {"loadMap", 1},
    {"addPlayer", 6},
    {"showObject", 1},
    {"setPlayerHealth", 2},
    {"fadeIn", 0},
    {"fadeOut", 0},
    {"delay", 1},
    {"endgame", 0},
    {"addPlayerWeapon", 3},
    {"switchWeapon", 2},
    {"playerDoAim", 3},
    {"playerDoFire", 3},
    {"playerDoMove", 3},
    {"playerDoStop", 1},
    {"say", 2},
    {"robotSay", 1},
    {"waitForPlayerAction", 1},
    {"showRobot", 1},
    {"lockControl", 1},
    {"addPresent", 3},
    {"addHiddenPresent", 4},
    {"setPlayerAIMode", 2},
    {"die", 1},
    {"playerX", 1},
    {"playerY", 1},
};

inline constexpr std::size_t kHostFunctionCount = std::size(kHostFunctions);

// The host function a name in any letter case calls, or null.
const HostFunctionSignature* findHostFunction(const std::string& name);

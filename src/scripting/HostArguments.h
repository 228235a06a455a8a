#pragma once

#include <string>
#include <vector>

#include "script/VeskVariable.h"
#include "scripting/HostFunctionTable.h"

namespace Grevan {

// The arguments of a host function that takes a fixed number of them, its arity in the host-function
// table. Argument k (from 1, in source order) is read arity - k entries below the top of the stack, whatever
// count the script passed: a script that passes too few makes the function read values of the calling frame,
// which is how the game's scripts have always behaved. Below the bottom of the stack an
// argument is undefined.
class HostArguments {
  public:
    HostArguments(const std::vector<VeskVariable>& stack, HostFunctionId function)
        : stack(stack), arity(hostArity(function)) {}

    int integer(int k) const;
    std::string text(int k) const;

  private:
    // Null below the bottom of the stack.
    const VeskVariable* at(int k) const;

    const std::vector<VeskVariable>& stack;
    int arity;
};

}  // namespace Grevan

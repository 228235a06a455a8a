#pragma once

#include <vector>

#include "script/VeskVariable.h"

// The host functions that need nothing of the game, print and isNull. The script host registers
// them; so does the vesk command. Both take any number of arguments, the top `argumentCount`
// entries of the stack, in source order.
namespace Grevan {

// Writes each argument's text to standard output, in order, with no separator and no line end.
void print(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount);

// 1 when every argument is undefined (also when there is none), else 0.
void isNull(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount);

}  // namespace Grevan

#include "scripting/BasicHostFunctions.h"

#include <cstdio>

namespace Grevan {

void print(std::vector<VeskVariable>& stack, VeskVariable&, int argumentCount) {
    for (std::size_t i = stack.size() - static_cast<std::size_t>(argumentCount); i < stack.size(); ++i) {
        const std::string& text = stack[i].getString();
        std::fwrite(text.data(), 1, text.size(), stdout);
    }
    // Whoever watches the game's output sees a script's lines as they are printed.
    std::fflush(stdout);
}

void isNull(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount) {
    int allUndefined = 1;
    for (std::size_t i = stack.size() - static_cast<std::size_t>(argumentCount); i < stack.size(); ++i) {
        if (stack[i].type != VeskVariable::TypeUndefined) {
            allUndefined = 0;
        }
    }
    result.setInteger(allUndefined);
}

}  // namespace Grevan

#include "scripting/HostArguments.h"

namespace Grevan {

const VeskVariable* HostArguments::at(int k) const {
    const std::size_t depth = static_cast<std::size_t>(arity - k);
    if (depth >= stack.size()) {
        return nullptr;
    }
    return &stack[stack.size() - 1 - depth];
}

int HostArguments::integer(int k) const {
    const VeskVariable* argument = at(k);
    return argument ? argument->getInteger() : VeskVariable().getInteger();
}

std::string HostArguments::text(int k) const {
    const VeskVariable* argument = at(k);
    return argument ? argument->toText() : VeskVariable().toText();
}

}  // namespace Grevan

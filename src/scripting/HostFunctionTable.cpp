#include "scripting/HostFunctionTable.h"

#include <strings.h>

#include "script/VeskScript.h"

const HostFunctionSignature* findHostFunction(const std::string& name) {
    for (const HostFunctionSignature& signature : kHostFunctions) {
        if (strcasecmp(signature.name, name.c_str()) == 0) {
            return &signature;
        }
    }
    return nullptr;
}

void registerHostFunctions(VeskScript& script, const HostFunctionBindings& bindings) {
    for (const HostFunctionBinding& binding : bindings) {
        script.addFunction(kHostFunctions[binding.id].name, binding.function);
    }
}

#include "HostFunctionTable.h"

#include <strings.h>

const HostFunctionSignature* findHostFunction(const std::string& name) {
    for (const HostFunctionSignature& signature : kHostFunctions) {
        if (strcasecmp(signature.name, name.c_str()) == 0) {
            return &signature;
        }
    }
    return nullptr;
}

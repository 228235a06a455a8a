// vesk [--check] FILE [FUNCTION]
// Loads FILE from the working directory as the game loads its main script (IMPORT paths are
// relative to the working directory), then runs FUNCTION, Main by default, the way the game runs
// Main. Exit status: 0 done, 1 script or runtime error (reported on standard output as the game
// reports it), 2 wrong usage.

#include <iostream>
#include <string>
#include <vector>

#include "StandInHostFunctions.h"
#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

namespace {

const char* const kUsage = "usage: vesk [--check] FILE [FUNCTION]";

}  // namespace

int main(int argc, char** argv) {
    bool checkOnly = false;
    std::vector<std::string> operands;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        if (argument == "--help") {
            std::cout << kUsage << "\n";
            return 0;
        }
        if (argument == "--check" && !checkOnly && operands.empty()) {
            checkOnly = true;
        } else if (argument.size() > 1 && argument[0] == '-') {
            std::cerr << kUsage << "\n";
            return 2;
        } else {
            operands.push_back(argument);
        }
    }
    if (operands.empty() || operands.size() > 2) {
        std::cerr << kUsage << "\n";
        return 2;
    }

    VeskScript script;
    script.addFunction("print", Grevan::print);
    script.addFunction("isNull", Grevan::isNull);
    registerStandInHostFunctions(script);

    if (!script.load(operands[0])) {
        std::cout << "Script error: " << script.getLastError() << "\n";
        return 1;
    }
    if (checkOnly) {
        return 0;
    }
    if (!script.run(operands.size() > 1 ? operands[1] : "Main")) {
        std::cout << "Runtime error: " << script.getLastError() << "\n";
        return 1;
    }
    return 0;
}

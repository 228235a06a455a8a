// vesk [--check [--strict] | --assets | --max-calls N] FILE [FUNCTION]
// Loads FILE from the working directory as the game loads its main script (IMPORT paths are
// relative to the working directory), then runs FUNCTION, Main by default, the way the game runs
// Main, with stand-ins for the game's host functions. --check loads without running and warns
// about what the language accepts but the author most likely did not mean; --assets lists every
// file the script can make the game read. Errors are reported on standard output as the game
// reports them, and once more on standard error naming the file.
// --help prints the usage line and --version the version, both on standard output.
// Exit status: 0 done, 1 script or runtime error (or, with --check --strict, a warning; with
// --assets, a missing file), 2 wrong usage, 3 stopped after the allowed number of host calls.

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "AssetList.h"
#include "ScriptLinter.h"
#include "StandInHostFunctions.h"
#include "script/VeskScript.h"

namespace {

const char* const kUsage = "usage: vesk [--check [--strict] | --assets | --max-calls N] FILE [FUNCTION]";
const long kDefaultMaxCalls = 100000;

enum Mode { MODE_RUN, MODE_CHECK, MODE_ASSETS };

struct Options {
    Mode mode = MODE_RUN;
    bool strict = false;
    long maxCalls = kDefaultMaxCalls;
    std::vector<std::string> operands;
};

// The error once more in the compiler's form, FILE:LINE: error: TEXT, naming the file it lies in
// (the main file when the engine names none) and leaving out a line it does not know.
std::string located(const VeskError& error, const std::string& mainFile) {
    const std::string& file = error.file.empty() ? mainFile : error.file;
    return file + (error.line > 0 ? ":" + std::to_string(error.line) : "") + ": error: " + error.describe();
}

// False on wrong usage.
bool readOptions(int argc, char** argv, Options& options) {
    bool maxCallsGiven = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (!options.operands.empty() || argument.size() < 2 || argument[0] != '-') {
            options.operands.push_back(argument);
        } else if (argument == "--check" && options.mode == MODE_RUN) {
            options.mode = MODE_CHECK;
        } else if (argument == "--assets" && options.mode == MODE_RUN) {
            options.mode = MODE_ASSETS;
        } else if (argument == "--strict" && !options.strict) {
            options.strict = true;
        } else if (argument == "--max-calls" && !maxCallsGiven && i + 1 < argc) {
            char* end = nullptr;
            options.maxCalls = std::strtol(argv[++i], &end, 10);
            maxCallsGiven = true;
            if (*end != '\0' || options.maxCalls < 1) {
                return false;
            }
        } else {
            return false;
        }
    }
    const bool runs = options.mode == MODE_RUN;
    const std::size_t maxOperands = runs ? 2 : 1;
    return !options.operands.empty() && options.operands.size() <= maxOperands &&
           (!options.strict || options.mode == MODE_CHECK) && (!maxCallsGiven || runs);
}

int listAssets(const std::string& file) {
    std::ostringstream ignored;
    ScriptLinter linter(ignored);
    linter.lint(file);
    AssetList assets(linter, std::cerr);
    return assets.write(std::cout) > 0 ? 1 : 0;
}

int loadAndRun(const Options& options) {
    const std::string& file = options.operands[0];
    const bool checking = options.mode == MODE_CHECK;
    std::ostringstream ignored;
    ScriptLinter linter(checking ? std::cerr : static_cast<std::ostream&>(ignored));
    linter.lint(file);

    VeskScript script;
    registerStandInHostFunctions(script, options.maxCalls);
    if (!script.load(file)) {
        std::cout << "Script error: " << script.getLastError() << "\n";
        std::cerr << located(script.getLastErrorParts(), file) << "\n";
        return 1;
    }
    if (checking) {
        return options.strict && linter.getWarningCount() > 0 ? 1 : 0;
    }
    try {
        if (!script.run(options.operands.size() > 1 ? options.operands[1] : "Main")) {
            std::cout << "Runtime error: " << script.getLastError() << "\n";
            std::cerr << located(script.getLastErrorParts(), file) << "\n";
            return 1;
        }
    } catch (const HostCallLimitReached& stop) {
        std::cout.flush();
        std::cerr << "vesk: stopped after " << stop.limit
                  << " host calls; the script may never end (--max-calls N allows more)\n";
        return 3;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string(argv[1]) == "--help") {
        std::cout << kUsage << "\n";
        return 0;
    }
    if (argc == 2 && std::string(argv[1]) == "--version") {
        std::cout << "vesk (Grevan) " << GREVAN_VERSION << "\n";
        return 0;
    }
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::cerr << kUsage << "\n";
        return 2;
    }
    return options.mode == MODE_ASSETS ? listAssets(options.operands[0]) : loadAndRun(options);
}

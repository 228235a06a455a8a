#include "ErrorLocation.h"

#include <cstdlib>

namespace {

const std::string kLinePrefix = "At line ";
const std::string kIncludePrefix = "Failed to include the file ";
const std::string kSeparator = " : ";

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

// Splits "At line N : REST" into N and REST; false for a text without a line.
bool splitLine(const std::string& text, int& line, std::string& rest) {
    const std::size_t separator = text.find(kSeparator);
    if (!startsWith(text, kLinePrefix) || separator == std::string::npos) {
        return false;
    }
    line = std::atoi(text.c_str() + kLinePrefix.size());
    rest = text.substr(separator + kSeparator.size());
    return true;
}

std::string format(const std::string& file, int line, const std::string& text) {
    return file + (line > 0 ? ":" + std::to_string(line) : "") + ": error: " + text;
}

}  // namespace

std::string locateScriptError(const std::string& mainFile, const std::string& lastError) {
    std::string file = mainFile;
    std::string text = lastError;
    int line = 0;
    std::string rest;
    while (splitLine(text, line, rest)) {
        const std::size_t pathEnd = rest.find(kSeparator);
        if (!startsWith(rest, kIncludePrefix) || pathEnd == std::string::npos) {
            return format(file, line, rest);
        }
        const std::string inner = rest.substr(pathEnd + kSeparator.size());
        if (!startsWith(inner, kLinePrefix)) {
            // The imported file has no line to point at (it cannot be opened): point at the IMPORT.
            return format(file, line, rest);
        }
        file = rest.substr(kIncludePrefix.size(), pathEnd - kIncludePrefix.size());
        text = inner;
    }
    return format(file, 0, text);
}

std::string locateRuntimeError(const ScriptLinter& linter, const std::string& mainFile,
                               const std::string& lastError) {
    int line = 0;
    std::string rest = lastError;
    splitLine(lastError, line, rest);
    const std::string function = rest.substr(0, rest.find(':'));
    const std::string file = linter.fileDefining(function);
    return format(file.empty() ? mainFile : file, line, rest);
}

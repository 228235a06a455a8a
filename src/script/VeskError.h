#pragma once

#include <string>

// The parts of the engine's last error, for hosts that report it their own way. The last-error
// text is made of them: "At line " LINE " : " (without a line, none), then describe().
struct VeskError {
    std::string message;   // what went wrong, e.g. "Syntax error, missing THEN" or "Division by zero"
    std::string detail;    // the word or name concerned
    std::string function;  // a runtime error's function, in which or about which it arose; else empty
    std::string file;      // the script file the fault lies in, as it was loaded; empty when unknown
    int line = -1;         // the line in that file; -1 when there is none

    // The text after the line part: [function ": "] message " : " detail.
    std::string describe() const {
        return (function.empty() ? "" : function + ": ") + message + " : " + detail;
    }
};

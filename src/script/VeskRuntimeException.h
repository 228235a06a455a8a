#pragma once

#include <string>

// A fault while a script runs; `function` names the function in which, or about which, it arose.
class VeskRuntimeException {
  public:
    VeskRuntimeException(std::string error, std::string detail, std::string function, int line);

    std::string getError() const { return error; }
    std::string getDetail() const { return detail; }
    std::string getFunction() const { return function; }
    int getLine() const { return line; }

    std::string error;
    std::string detail;
    std::string function;
    int line;
};

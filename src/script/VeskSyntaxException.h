#pragma once

#include <string>

// A fault found while a script is read and parsed; caught at the top of the statement parser.
class VeskSyntaxException {
  public:
    VeskSyntaxException(std::string error, std::string detail, int line);

    std::string getError() const { return error; }
    std::string getDetail() const { return detail; }
    int getLine() const { return line; }

    std::string error;
    std::string detail;
    int line;
};

#pragma once

#include <string>

// One lexical token. `id` is a token kind of VeskTables.h; `line` is 1-based.
class VeskToken {
  public:
    VeskToken() = default;
    VeskToken(int line, int id, std::string text) : line(line), id(id), text(std::move(text)) {}

    int line = 0;
    int id = 0;
    std::string text;
};

#include "script/VeskSyntaxException.h"

VeskSyntaxException::VeskSyntaxException(std::string error, std::string detail, int line)
    : error(std::move(error)), detail(std::move(detail)), line(line) {}

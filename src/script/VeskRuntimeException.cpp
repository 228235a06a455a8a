#include "script/VeskRuntimeException.h"

VeskRuntimeException::VeskRuntimeException(std::string error, std::string detail, std::string function,
                                           int line)
    : error(std::move(error)), detail(std::move(detail)), function(std::move(function)), line(line) {}

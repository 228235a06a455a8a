#include "script/VeskVariable.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

// atoi and atof semantics without their undefined behaviour: strtol's 64-bit result is narrowed
// by wrapping, as glibc's atoi does, and strtod's double is narrowed to a float with overflow
// going to infinity.
std::int32_t leadingInteger(const std::string& text) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(std::strtol(text.c_str(), nullptr, 10)));
}

float leadingFloat(const std::string& text) {
    double value = std::strtod(text.c_str(), nullptr);
    if (value > std::numeric_limits<float>::max()) {
        return std::numeric_limits<float>::infinity();
    }
    if (value < -std::numeric_limits<float>::max()) {
        return -std::numeric_limits<float>::infinity();
    }
    return static_cast<float>(value);
}

}  // namespace

std::int32_t VeskVariable::truncated(float value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= 2147483648.0f) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (value <= -2147483648.0f) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(value);
}

void VeskVariable::setInteger(std::int32_t value) {
    integerValue = value;
    type = TypeInteger;
}

void VeskVariable::setFloat(float value) {
    floatValue = value;
    type = TypeFloat;
}

void VeskVariable::setString(std::string value) {
    ownText() = std::move(value);
    type = TypeString;
}

std::string& VeskVariable::getString() {
    if (type != TypeString) {
        ownText() = toText();
    }
    return ownText();
}

const std::string& VeskVariable::emptyText() {
    static const std::string empty;
    return empty;
}

std::string VeskVariable::toText() const {
    switch (type) {
        case TypeInteger: {
            char buffer[16];
            char* end = std::to_chars(buffer, buffer + sizeof buffer, integerValue).ptr;
            return std::string(buffer, end);
        }
        case TypeFloat: {
            // Wide enough for "%f" of the largest float: 39 digits, the point and six decimals.
            char buffer[64];
            int length = std::snprintf(buffer, sizeof buffer, "%f", static_cast<double>(floatValue));
            return std::string(buffer, static_cast<std::size_t>(length));
        }
        case TypeString:
            return stringValue();
        default:
            return "undefined";
    }
}

std::int32_t VeskVariable::convertedInteger() const {
    switch (type) {
        case TypeFloat:
            return truncated(floatValue);
        case TypeString:
            return leadingInteger(stringValue());
        default:
            return 0;
    }
}

float VeskVariable::getFloat() const {
    switch (type) {
        case TypeInteger:
            return static_cast<float>(integerValue);
        case TypeFloat:
            return floatValue;
        case TypeString:
            return leadingFloat(stringValue());
        default:
            return std::numeric_limits<float>::quiet_NaN();
    }
}

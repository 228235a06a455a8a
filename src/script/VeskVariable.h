#pragma once

#include <cstdint>
#include <string>

// One script value. Copies carry every field, the scope and constant flags and the slot included:
// the interpreter moves whole values around and relies on that.
class VeskVariable {
  public:
    enum Type : std::uint8_t { TypeUndefined = 0, TypeInteger = 1, TypeString = 2, TypeFloat = 3 };

    VeskVariable() = default;

    void setInteger(std::int32_t value);
    void setFloat(float value);
    void setString(std::string value);

    // The value as text: "%d" for integers, "%f" for floats, "undefined" when unset. The text is
    // cached in stringValue, which is why this is not const; the type stays as it was.
    std::string& getString();
    // Floats truncate toward zero (NaN gives 0, values beyond the 32-bit range saturate); strings
    // read their leading number as atoi does; undefined is 0.
    std::int32_t getInteger() const;
    // Strings read their leading number as atof does; undefined is NaN.
    float getFloat() const;

    // The rule of = and <>: the texts when either side is a string, else both as integers.
    bool equals(const VeskVariable& other) const;
    // The text getString would give, without touching the cache.
    std::string toText() const;
    // Gives this variable the value of a freshly computed integer, flags cleared, as a whole-value
    // copy of such a result would.
    void storeInteger(std::int32_t value) {
        type = TypeInteger;
        isGlobal = 0;
        isConstant = 0;
        integerValue = value;
    }

    std::uint8_t type = TypeUndefined;
    std::uint8_t isGlobal = 0;
    std::uint8_t isConstant = 0;
    std::uint16_t slot = 0;
    std::int32_t integerValue = 0;
    float floatValue = 0.0f;
    std::string stringValue;
};

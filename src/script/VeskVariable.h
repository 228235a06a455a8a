#pragma once

#include <cstdint>
#include <memory>
#include <string>

// One script value. Copies carry every field, the scope and constant flags and the slot included:
// the interpreter moves whole values around and relies on that.
//
// The text is kept out of line and is absent while empty: most values are numbers, and the
// runtime stack pushes, moves and pops them on every call, so a value stays at 24 bytes with
// nothing to build or free for a number.
class VeskVariable {
  public:
    enum Type : std::uint8_t { TypeUndefined = 0, TypeInteger = 1, TypeString = 2, TypeFloat = 3 };

    VeskVariable() = default;
    VeskVariable(const VeskVariable& other) { *this = other; }
    VeskVariable(VeskVariable&& other) noexcept = default;
    VeskVariable& operator=(const VeskVariable& other) {
        copyNumbers(other);
        if (other.text && !other.text->empty()) {
            if (text) {
                *text = *other.text;  // reuses this value's buffer, as a string assignment would
            } else {
                text = std::make_unique<std::string>(*other.text);
            }
        } else if (text) {
            text->clear();
        }
        return *this;
    }
    VeskVariable& operator=(VeskVariable&& other) noexcept = default;
    ~VeskVariable() = default;

    void setInteger(std::int32_t value);
    void setFloat(float value);
    void setString(std::string value);

    // The value as text: "%d" for integers, "%f" for floats, "undefined" when unset. The text is
    // cached in stringValue, which is why this is not const; the type stays as it was.
    std::string& getString();
    // The text of a string, or the cache getString last filled; empty for a fresh value.
    const std::string& stringValue() const { return text ? *text : emptyText(); }
    // Floats truncate toward zero (NaN gives 0, values beyond the 32-bit range saturate); strings
    // read their leading number as atoi does; undefined is 0.
    std::int32_t getInteger() const { return type == TypeInteger ? integerValue : convertedInteger(); }
    // Strings read their leading number as atof does; undefined is NaN.
    float getFloat() const;

    // The rule of = and <>: the texts when either side is a string, else both as integers.
    bool equals(const VeskVariable& other) const {
        if (type == TypeString && other.type == TypeString) {
            return stringValue() == other.stringValue();
        }
        if (type != TypeString && other.type != TypeString) {
            return getInteger() == other.getInteger();
        }
        return toText() == other.toText();
    }
    // The text getString would give, without touching the cache.
    std::string toText() const;
    // Gives this variable the value of a freshly computed integer, flags cleared, as a whole-value
    // copy of such a result would.
    void storeInteger(std::int32_t value) {
        type = TypeInteger;
        isGlobal = 0;
        isConstant = 0;
        integerValue = value;
        floatValue = 0.0f;
    }
    // The same for a float.
    void storeFloat(float value) {
        type = TypeFloat;
        isGlobal = 0;
        isConstant = 0;
        integerValue = 0;
        floatValue = value;
    }
    // A float as getInteger gives it: truncated toward zero, NaN 0, beyond the 32-bit range
    // saturated.
    static std::int32_t truncated(float value);

  private:
    static const std::string& emptyText();
    // The text, made on first use.
    std::string& ownText() {
        if (!text) {
            text = std::make_unique<std::string>();
        }
        return *text;
    }
    std::int32_t convertedInteger() const;
    void copyNumbers(const VeskVariable& other) {
        type = other.type;
        isGlobal = other.isGlobal;
        isConstant = other.isConstant;
        slot = other.slot;
        integerValue = other.integerValue;
        floatValue = other.floatValue;
    }

  public:
    std::uint8_t type = TypeUndefined;
    std::uint8_t isGlobal = 0;
    std::uint8_t isConstant = 0;
    std::uint16_t slot = 0;
    std::int32_t integerValue = 0;
    float floatValue = 0.0f;

  private:
    // Null stands for the empty text.
    std::unique_ptr<std::string> text;
};

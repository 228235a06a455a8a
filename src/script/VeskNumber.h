#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "script/VeskSyntaxNode.h"
#include "script/VeskVariable.h"

// A value of the interpreter's number path: an integer or a float, held without the text and the
// flags of a VeskVariable, so that arithmetic over numbers makes no VeskVariable temporaries.
struct VeskNumber {
    std::int32_t integer = 0;
    float real = 0.0f;
    bool isFloat = false;

    // Takes an integer or a float; false for a text or an undefined value, which the number path
    // leaves to the general one.
    bool read(const VeskVariable& value) {
        integer = value.integerValue;
        real = value.floatValue;
        isFloat = value.type == VeskVariable::TypeFloat;
        return isFloat || value.type == VeskVariable::TypeInteger;
    }
    std::int32_t asInteger() const { return isFloat ? VeskVariable::truncated(real) : integer; }
    float asFloat() const { return isFloat ? real : static_cast<float>(integer); }
    // asInteger() != 0 without the truncation's call: a float truncates to zero exactly when it
    // is NaN or lies strictly between -1 and 1.
    bool isTrue() const { return isFloat ? std::fabs(real) >= 1.0f : integer != 0; }
    // Gives `target` this number as a whole-value copy of a freshly computed one would.
    void storeInto(VeskVariable& target) const {
        if (isFloat) {
            target.storeFloat(real);
        } else {
            target.storeInteger(integer);
        }
    }
};

// Throws the runtime error of an operation that has no result ("Division by zero", "String too
// long"), naming the operation's function and line.
[[noreturn]] __attribute__((noinline, cold)) void throwArithmeticFault(const VeskSyntaxNode* operation,
                                                                       const char* error);

// Integer arithmetic wraps in 32 bits. Division and MOD by zero, and the smallest integer divided
// by -1, are script errors. Returns false for an operator without an integer meaning.
inline bool integerOperation(const VeskSyntaxNode* operation, std::int32_t left, std::int32_t right,
                             std::int32_t& result) {
    const auto wrapped = [](std::uint32_t value) { return static_cast<std::int32_t>(value); };
    const auto l = static_cast<std::uint32_t>(left);
    const auto r = static_cast<std::uint32_t>(right);
    switch (operation->op) {
        case OperatorOr:
            result = left | right;
            return true;
        case OperatorAnd:
            result = left & right;
            return true;
        case OperatorXor:
            result = left ^ right;
            return true;
        case OperatorNot:
            result = right == 0 ? 1 : 0;
            return true;
        case OperatorMod:
            if (right == 0) {
                throwArithmeticFault(operation, "Division by zero");
            }
            result = right == -1 ? 0 : left % right;
            return true;
        case OperatorDivide:
            if (right == 0 || (right == -1 && left == std::numeric_limits<std::int32_t>::min())) {
                throwArithmeticFault(operation, "Division by zero");
            }
            result = left / right;
            return true;
        case OperatorMultiply:
            result = wrapped(l * r);
            return true;
        case OperatorAdd:
            result = wrapped(l + r);
            return true;
        case OperatorSubtract:
            result = wrapped(l - r);
            return true;
        case OperatorGreater:
            result = left > right;
            return true;
        case OperatorGreaterEqual:
            result = left >= right;
            return true;
        case OperatorLess:
            result = left < right;
            return true;
        case OperatorLessEqual:
            result = left <= right;
            return true;
        case OperatorEqual:
            result = left == right;
            return true;
        case OperatorNotEqual:
            result = left != right;
            return true;
        default:
            return false;
    }
}

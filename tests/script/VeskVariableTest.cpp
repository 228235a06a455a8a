// The conversions a script cannot reach with literals; the language cases print the rest.

#include "script/VeskVariable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace {

VeskVariable floating(float value) {
    VeskVariable v;
    v.setFloat(value);
    return v;
}

VeskVariable text(const char* value) {
    VeskVariable v;
    v.setString(value);
    return v;
}

}  // namespace

TEST(VeskVariable, GetIntegerTruncatesSaturatesAndReadsLeadingNumbers) {
    const std::pair<VeskVariable, int> cases[] = {
        {floating(-2.7f), -2},
        {floating(1e10f), 2147483647},
        {floating(-1e10f), -2147483647 - 1},
        {floating(2147483648.0f), 2147483647},
        {floating(NAN), 0},
        {text("  -7 x"), -7},
        {text("4294967297"), 1},  // read as a long, then wrapped to 32 bits as atoi does
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(value.getInteger(), expected) << value.toText();
    }
}

// Deliberate: the interpreter moves whole values around, so a copy carries the flags and the slot.
TEST(VeskVariable, CopiesCarryConstnessScopeAndSlot) {
    VeskVariable constant = text("pear");
    constant.isConstant = 1;
    constant.isGlobal = 1;
    constant.slot = 9;
    VeskVariable assigned;
    assigned = constant;
    VeskVariable copied(constant);
    for (const VeskVariable* copy : {&assigned, &copied}) {
        EXPECT_EQ(copy->isConstant, 1);
        EXPECT_EQ(copy->isGlobal, 1);
        EXPECT_EQ(copy->slot, 9);
        EXPECT_EQ(copy->stringValue(), "pear");
    }
}

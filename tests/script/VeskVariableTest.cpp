// What a script cannot see for itself; the language cases print the conversions.

#include "script/VeskVariable.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

// Deliberate: the interpreter moves whole values around, so a copy carries the flags and the slot.
TEST(VeskVariable, CopiesCarryConstnessScopeAndSlot) {
    VeskVariable constant;
    constant.setString("pear");
    constant.isConstant = constant.isGlobal = 1;
    constant.slot = 9;
    VeskVariable assigned;
    assigned = constant;
    for (const VeskVariable& copy : {assigned, VeskVariable(constant)}) {
        EXPECT_EQ(std::make_tuple(copy.isConstant, copy.isGlobal, copy.slot, copy.stringValue()),
                  std::make_tuple(1, 1, 9, std::string("pear")));
    }
}

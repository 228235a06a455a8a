#include "scripting/BasicHostFunctions.h"

#include <gtest/gtest.h>

namespace {

std::vector<VeskVariable> stackOf(std::initializer_list<VeskVariable> values) {
    std::vector<VeskVariable> stack;
    VeskVariable beneath;
    beneath.setString("beneath");
    stack.push_back(beneath);
    stack.insert(stack.end(), values);
    return stack;
}

VeskVariable integer(int value) {
    VeskVariable v;
    v.setInteger(value);
    return v;
}

}  // namespace

TEST(BasicHostFunctions, PrintWritesTheTopArgumentsWithoutSeparators) {
    VeskVariable a;
    a.setString("a");
    VeskVariable half;
    half.setFloat(2.5f);
    std::vector<VeskVariable> stack = stackOf({a, integer(1), half, VeskVariable()});
    VeskVariable result;
    testing::internal::CaptureStdout();
    Grevan::print(stack, result, 4);
    Grevan::print(stack, result, 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "a12.500000undefined");
    EXPECT_EQ(result.type, VeskVariable::TypeUndefined);
}

TEST(BasicHostFunctions, IsNullIsOneWhenEveryArgumentIsUndefined) {
    struct Case {
        std::vector<VeskVariable> stack;
        int count;
        int expected;
    } cases[] = {
        {stackOf({}), 0, 1},
        {stackOf({VeskVariable()}), 1, 1},
        {stackOf({integer(0)}), 1, 0},
        {stackOf({VeskVariable(), integer(0)}), 2, 0},
        {stackOf({VeskVariable(), VeskVariable()}), 2, 1},
        {stackOf({integer(0), VeskVariable()}), 1, 1},
    };
    for (Case& c : cases) {
        VeskVariable result;
        Grevan::isNull(c.stack, result, c.count);
        EXPECT_EQ(result.type, VeskVariable::TypeInteger);
        EXPECT_EQ(result.integerValue, c.expected);
    }
}

#include "script/VeskVariable.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

VeskVariable integer(int value) {
    VeskVariable v;
    v.setInteger(value);
    return v;
}

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

TEST(VeskVariable, GetStringFormatsEachTypeAndKeepsTheType) {
    struct Case {
        VeskVariable value;
        const char* expected;
    } cases[] = {
        {VeskVariable(), "undefined"},   {integer(-5), "-5"},      {floating(2.5f), "2.500000"},
        {floating(1.5f), "1.500000"},    {text("12abc"), "12abc"}, {integer(-2147483647 - 1), "-2147483648"},
        {floating(-0.25f), "-0.250000"}, {text(""), ""},
    };
    for (Case& c : cases) {
        const int type = c.value.type;
        EXPECT_EQ(c.value.getString(), c.expected);
        EXPECT_EQ(c.value.type, type);
        EXPECT_EQ(c.value.toText(), c.expected);
    }
}

TEST(VeskVariable, GetIntegerTruncatesFloatsAndReadsLeadingNumbers) {
    struct Case {
        VeskVariable value;
        int expected;
    } cases[] = {
        {floating(-2.7f), -2},
        {floating(2.7f), 2},
        {text("12abc"), 12},
        {text("abc"), 0},
        {text("  -7 x"), -7},
        {VeskVariable(), 0},
        {integer(42), 42},
        {floating(1e10f), 2147483647},
        {floating(-1e10f), -2147483647 - 1},
        {floating(2147483648.0f), 2147483647},
        {floating(NAN), 0},
        {text("4294967297"), 1},  // read as a long, then wrapped to 32 bits as atoi
                                  // does
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.value.getInteger(), c.expected) << c.value.toText();
    }
}

TEST(VeskVariable, GetFloatConvertsAndUndefinedIsNaN) {
    EXPECT_TRUE(std::isnan(VeskVariable().getFloat()));
    EXPECT_FLOAT_EQ(integer(-3).getFloat(), -3.0f);
    EXPECT_FLOAT_EQ(text("2.25kg").getFloat(), 2.25f);
    EXPECT_FLOAT_EQ(text("kg").getFloat(), 0.0f);
    EXPECT_TRUE(std::isinf(text("1e300").getFloat()));
}

TEST(VeskVariable, CopiesCarryConstnessScopeAndSlot) {
    VeskVariable constant = integer(3);
    constant.isConstant = 1;
    constant.isGlobal = 1;
    constant.slot = 9;
    VeskVariable fresh;
    fresh = constant;
    EXPECT_EQ(fresh.isConstant, 1);
    EXPECT_EQ(fresh.isGlobal, 1);
    EXPECT_EQ(fresh.slot, 9);
    VeskVariable copied(constant);
    EXPECT_EQ(copied.isConstant, 1);
    EXPECT_EQ(copied.integerValue, 3);
}

TEST(VeskVariable, SettersChangeOnlyTheirValueAndType) {
    VeskVariable v = text("kept");
    v.setInteger(7);
    EXPECT_EQ(v.type, VeskVariable::TypeInteger);
    EXPECT_EQ(v.stringValue(), "kept");
    v.setFloat(0.5f);
    EXPECT_EQ(v.type, VeskVariable::TypeFloat);
    EXPECT_EQ(v.integerValue, 7);
}

TEST(VeskVariable, CopiesOwnTheirTextAndANumberClearsIt) {
    VeskVariable original = text("pear");
    VeskVariable copy(original);
    copy.getString() += "s";
    EXPECT_EQ(original.stringValue(), "pear");
    EXPECT_EQ(copy.stringValue(), "pears");

    VeskVariable moved(std::move(copy));
    EXPECT_EQ(moved.stringValue(), "pears");
    moved = integer(4);
    EXPECT_EQ(moved.type, VeskVariable::TypeInteger);
    EXPECT_EQ(moved.stringValue(), "");
    EXPECT_EQ(moved.getString(), "4");

    VeskVariable empty = text("");
    EXPECT_EQ(empty.getString(), "");
    EXPECT_TRUE(empty.equals(text("")));
}

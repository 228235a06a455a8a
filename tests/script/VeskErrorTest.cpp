#include <gtest/gtest.h>

#include "script/VeskScript.h"

TEST(VeskError, LastErrorFormatDependsOnTheLine) {
    VeskScript script;
    EXPECT_EQ(script.getLastError(), "No error. : ");
    struct Case {
        int line;
        const char* expected;
    } cases[] = {
        {-1, "E : D"},
        {0, "At line 0 : E : D"},
        {12, "At line 12 : E : D"},
        {-2, "At line -2 : E : D"},
    };
    for (const Case& c : cases) {
        script.setLastError("E", "D", c.line);
        EXPECT_EQ(script.getLastError(), c.expected);
    }
}

TEST(VeskError, LoadReportsAMissingFileWithoutALine) {
    VeskScript script;
    EXPECT_FALSE(script.load("no/such/file.fb"));
    EXPECT_EQ(script.getLastError(), "Failed to open file. : no/such/file.fb");
    EXPECT_FALSE(script.load("."));
    EXPECT_EQ(script.getLastError(), "Failed to open file. : .");
}

TEST(VeskError, ASecondFailureReplacesTheFirst) {
    VeskScript script;
    EXPECT_FALSE(script.parse("oops\n"));
    EXPECT_EQ(script.getLastError(), "At line 1 : unknown word : OOPS");
    EXPECT_TRUE(script.parse("DIM A\n"));
    EXPECT_EQ(script.getLastError(), "At line 1 : unknown word : OOPS");
    EXPECT_FALSE(script.parse("\n\nDIM A\n"));
    EXPECT_EQ(script.getLastError(), "At line 3 : Redim variable : A");
}

TEST(VeskError, ExceptionsCarryEveryField) {
    VeskSyntaxException syntax("error", "detail", 4);
    VeskSyntaxException syntaxCopy = syntax;
    EXPECT_EQ(syntaxCopy.getError(), "error");
    EXPECT_EQ(syntaxCopy.getDetail(), "detail");
    EXPECT_EQ(syntaxCopy.getLine(), 4);
    VeskRuntimeException runtime("error", "detail", "function", 5);
    VeskRuntimeException runtimeCopy = runtime;
    EXPECT_EQ(runtimeCopy.getFunction(), "function");
    EXPECT_EQ(runtimeCopy.getLine(), 5);
}

// The engine as the game's script host uses it: host functions, the last error, and the limits that
// keep a script from crashing the process. What a script can see for itself is checked by the
// language cases; the game's events by ScriptSystemTest.

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

namespace {

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

// Lines that give a function `count` locals of its own, L0 upwards.
std::string locals(int count) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        lines += "  L" + std::to_string(i) + " = 0\n";
    }
    return lines;
}

// F and G call each other until N reaches Limit: some 2 * limit calls deep, with F's frame holding
// `fLocals` besides.
std::string recursion(int limit, const std::string& fLocals) {
    return "CONST Limit = " + std::to_string(limit) + "\nFUNCTION F(N)\n" + fLocals +
           "  F = G(N + 1)\nEND FUNCTION\nFUNCTION G(N)\n  IF N < Limit THEN\n    G = F(N)\n  END IF\n"
           "END FUNCTION\nFUNCTION Main\n  X = F(0)\nEND FUNCTION\n";
}

}  // namespace

// A call inside an argument runs against the stack as the caller left it: a host function that
// reads below its own arguments, as the game's fixed-arity ones may, sees the caller's frame and
// not the arguments evaluated before it.
TEST(VeskInterpreter, ArgumentsAreAllEvaluatedBeforeAnyIsPushed) {
    VeskScript script;
    script.addFunction(
        "Top", [](std::vector<VeskVariable>& stack, VeskVariable& result, int) { result = stack.back(); });
    ASSERT_TRUE(
        script.parse("FUNCTION Main\n  Main = \"frame\"\n  Main = Pair(\"first\", Top())\nEND FUNCTION\n"
                     "FUNCTION Pair(A, B)\n  Pair = B\nEND FUNCTION\n"));
    EXPECT_EQ(script.invokeFunction("MAIN", 0).getString(), "frame");
}

TEST(VeskInterpreter, AddFunctionRefusesATakenName) {
    VeskScript script;
    EXPECT_TRUE(script.addFunction("print", Grevan::print));
    EXPECT_FALSE(script.addFunction("PRINT", Grevan::isNull));
    EXPECT_EQ(script.getLastError(), "function redefined : PRINT");
    EXPECT_EQ(script.findFunction("PRINT")->hostFunction, &Grevan::print);
    ASSERT_TRUE(script.parse("DIM Taken\n"));
    EXPECT_FALSE(script.addFunction("taken", Grevan::isNull));
}

TEST(VeskInterpreter, UndefinedFunctionOfAFailedLoadHasNoReturnVariable) {
    VeskScript script;
    EXPECT_FALSE(script.parse("FUNCTION Main\n  Missing()\nEND FUNCTION\n"));
    EXPECT_EQ(script.getLastError(), "Function not implemented : MISSING");
    // The game runs Main even after a failed load; the placeholder has nothing to return.
    EXPECT_FALSE(script.run("Main"));
    EXPECT_EQ(script.getLastError(), "MISSING: variable not found : MISSING");
}

TEST(VeskInterpreter, OperationStandingAsAStatementIsTraced) {
    VeskScript script;
    ASSERT_TRUE(script.parse("DIM A\n"));
    ASSERT_TRUE(script.scan("A + 1\n"));
    VeskSyntaxNode* operation = script.parseExpression(nullptr);
    testing::internal::CaptureStdout();
    EXPECT_EQ(script.interpret(operation), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "run eval +\n");
}

// On a thread with default attributes, as the game runs scripts: a recursion within the depth limit
// completes; one past it, an expression nested 200000 deep, and a recursion through frames of 3000
// locals, which the runtime stack's bound on values stops long before the depth limit would, end with
// "Stack overflow" instead of a crash. Call arguments nest a level each; the function body and 200 IF
// blocks nest 201 deep, so the 200th IF, on line 201, is refused. A function has at most 65536 slots,
// its return variable included.
TEST(VeskInterpreter, DeepRecursionNestingAndLocalsEndInAnErrorNotACrash) {
    const std::pair<std::string, const char*> cases[] = {
        {recursion(400, ""), "No error. : "},
        {recursion(100000, ""), "At line 0 : G: Stack overflow : G"},
        {recursion(100000, locals(3000)), "At line 0 : F: Stack overflow : F"},
        {"DIM A\nFUNCTION Main\n  A = 1\n  X = " + repeated("A + (", 200000) + "A" +
             std::string(200000, ')') + "\nEND FUNCTION\n",
         "At line 0 : MAIN: Stack overflow : MAIN"},
        {"FUNCTION Main\n  X = " + repeated("F(", 1000) + "1" + std::string(1000, ')') + "\nEND FUNCTION\n",
         "At line 2 : Nesting too deep : F"},
        {"FUNCTION Main\n" + repeated("  IF 1 THEN\n", 201) + repeated("  END IF\n", 201) + "END FUNCTION\n",
         "At line 201 : Nesting too deep : 1"},
        {"FUNCTION Main\n" + locals(65536) + "END FUNCTION\n", "At line 0 : Too many variables : L65535"},
    };
    for (const auto& [source, error] : cases) {
        VeskScript script;
        if (script.parse(source)) {
            std::thread([&script] { script.run("Main"); }).join();
        }
        EXPECT_EQ(script.getLastError(), error);
    }
}

// The game asks a script to end when the player quits: long loops and a long recursion each stop at
// their next pass or call, as a stop and not as an error. Each would run for seconds on its own.
TEST(VeskInterpreter, StopRequestEndsARunningScriptAtItsNextLoopPassOrCall) {
    const char* const sources[] = {
        "FUNCTION Main()\n  X = 0\n  DO WHILE X < 300000000\n    X = X + 1\n  LOOP\nEND FUNCTION\n",
        "FUNCTION Main()\n  FOR I = 1 TO 300000000\n  NEXT\nEND FUNCTION\n",
        "FUNCTION Down(N)\n  IF N > 0 THEN\n    Down(N - 1)\n    Down(N - 1)\n  END IF\nEND FUNCTION\n"
        "FUNCTION Main()\n  Down(25)\nEND FUNCTION\n",
    };
    for (const char* source : sources) {
        VeskScript script;
        ASSERT_TRUE(script.parse(source)) << script.getLastError();
        std::thread stopper([&script] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            script.requestStop();
        });
        EXPECT_THROW(script.run("Main"), VeskStopException) << source;
        stopper.join();
        EXPECT_EQ(script.getLastError(), "No error. : ") << source;
        EXPECT_THROW(script.run("Main"), VeskStopException) << "the request stays";
        EXPECT_THROW(script.invokeFunction("ONKILL", 3), VeskStopException)
            << "a missing function is no error";
    }
}

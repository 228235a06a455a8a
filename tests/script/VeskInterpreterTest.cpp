// The engine as the game's script host uses it: run, invokeFunction with pushed arguments, host
// functions, the last error, and the limits that keep a script from crashing the process.

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

namespace {

std::string lastSeen;

void remember(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount) {
    lastSeen.clear();
    for (std::size_t i = stack.size() - static_cast<std::size_t>(argumentCount); i < stack.size(); ++i) {
        lastSeen += stack[i].getString() + ";";
    }
    result.setInteger(argumentCount);
}

// The script host's way to deliver an event: three integers pushed, the function called by its
// upper-case name, the three popped again.
VeskVariable raiseEvent(VeskScript& script, std::string name, int a, int b, int c) {
    std::vector<VeskVariable>& stack = script.getRuntimeStack();
    for (int value : {a, b, c}) {
        stack.emplace_back().setInteger(value);
    }
    VeskScript::toUpperString(name);
    VeskVariable result = script.invokeFunction(name, 3);
    stack.resize(stack.size() - 3);
    return result;
}

// Runs `function` of `text` on a thread started with default attributes, as the game runs scripts.
bool runOnThread(const std::string& text, const std::string& function, std::string& error) {
    VeskScript script;
    EXPECT_TRUE(script.parse(text)) << script.getLastError();
    bool completed = false;
    std::thread([&] { completed = script.run(function); }).join();
    error = script.getLastError();
    return completed;
}

}  // namespace

TEST(VeskInterpreter, EventArgumentsArriveInOrderAndTheStackIsRestored) {
    VeskScript script;
    ASSERT_TRUE(script.parse("FUNCTION OnKill(Id, X, Y)\n  OnKill = Id * 100 + X * 10 + Y\nEND FUNCTION\n"))
        << script.getLastError();
    EXPECT_EQ(raiseEvent(script, "OnKill", 1, 2, 3).integerValue, 123);
    EXPECT_EQ(raiseEvent(script, "onkill", 4, 5, 6).integerValue, 456);
    EXPECT_TRUE(script.getRuntimeStack().empty());
}

TEST(VeskInterpreter, CallFaultsNameTheFunction) {
    struct Case {
        const char* source;
        const char* event;
        const char* error;
    } cases[] = {
        {"FUNCTION Main\nEND FUNCTION\n", "OnKill", "Function not found"},
        {"FUNCTION OnKill(Id)\nEND FUNCTION\n", "OnKill", "Too many parameters"},
    };
    for (const Case& c : cases) {
        VeskScript script;
        ASSERT_TRUE(script.parse(c.source));
        try {
            raiseEvent(script, c.event, 1, 2, 3);
            ADD_FAILURE() << c.source;
        } catch (const VeskRuntimeException& e) {
            EXPECT_EQ(e.getError(), c.error);
            EXPECT_EQ(e.getDetail(), "ONKILL");
            EXPECT_EQ(e.getFunction(), "ONKILL");
            EXPECT_EQ(e.getLine(), 0);
        }
    }
}

TEST(VeskInterpreter, ThreeArgumentsFitTwoParametersAndTheirReturnVariable) {
    VeskScript script;
    ASSERT_TRUE(script.parse("FUNCTION OnKill(Id, X)\n  Y = 1\nEND FUNCTION\n"));
    EXPECT_EQ(raiseEvent(script, "OnKill", 1, 2, 3).integerValue, 3);
}

TEST(VeskInterpreter, RunReportsRuntimeErrorsWithFunctionAndLine) {
    VeskScript script;
    ASSERT_TRUE(script.parse("DIM Zero\nFUNCTION Main\n  Zero = 0\n\n  X = 1 / Zero\nEND FUNCTION\n"));
    EXPECT_FALSE(script.run("main"));
    EXPECT_EQ(script.getLastError(), "At line 5 : MAIN: Division by zero : /");
    EXPECT_FALSE(script.run("Nothing"));
    EXPECT_EQ(script.getLastError(), "At line 0 : NOTHING: Function not found : NOTHING");
}

TEST(VeskInterpreter, HostFunctionsSeeTheirArgumentsOnTopOfTheStack) {
    VeskScript script;
    ASSERT_TRUE(script.addFunction("Remember", remember));
    ASSERT_TRUE(
        script.parse("FUNCTION Main\n  L = \"local\"\n  R = remember(1, \"two\", 3.5)\n"
                     "  Main = R + remember()\nEND FUNCTION\n"));
    EXPECT_EQ(script.invokeFunction("MAIN", 0).integerValue, 3);
    EXPECT_EQ(lastSeen, "");
    EXPECT_TRUE(script.run("Main"));
}

TEST(VeskInterpreter, ArgumentsAreAllEvaluatedBeforeAnyIsPushed) {
    // remember() with no arguments inside the second argument must see the caller's frame on top,
    // not the first argument.
    VeskScript script;
    ASSERT_TRUE(script.addFunction("Remember", remember));
    ASSERT_TRUE(
        script.parse("FUNCTION Main\n  Top = \"frame\"\n  X = Pair(\"first\", Peek())\nEND FUNCTION\n"
                     "FUNCTION Peek\n  Peek = remember\nEND FUNCTION\n"
                     "FUNCTION Pair(A, B)\nEND FUNCTION\n"));
    lastSeen = "unset";
    EXPECT_TRUE(script.run("Main")) << script.getLastError();
    EXPECT_EQ(lastSeen, "");
}

TEST(VeskInterpreter, AddFunctionRefusesATakenName) {
    VeskScript script;
    EXPECT_TRUE(script.addFunction("print", Grevan::print));
    EXPECT_FALSE(script.addFunction("PRINT", Grevan::isNull));
    EXPECT_EQ(script.getLastError(), "function redefined : PRINT");
    EXPECT_EQ(script.findFunction("PRINT")->hostFunction, &Grevan::print);
    ASSERT_TRUE(script.parse("DIM Taken\n"));
    EXPECT_FALSE(script.addFunction("taken", Grevan::isNull));
    EXPECT_TRUE(script.invokeExternal("UNKNOWN", 0));
    EXPECT_FALSE(script.invokeExternal("PRINT", 0));
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

TEST(VeskInterpreter, UnboundedRecursionIsAStackOverflowOnADefaultThread) {
    std::string error;
    EXPECT_FALSE(
        runOnThread("FUNCTION F(N)\n  F = G(N + 1)\nEND FUNCTION\n"
                    "FUNCTION G(N)\n  IF N > 0 THEN\n    G = F(N)\n  END IF\nEND FUNCTION\n"
                    "FUNCTION Main\n  X = F(0)\nEND FUNCTION\n",
                    "Main", error));
    EXPECT_NE(error.find("Stack overflow"), std::string::npos) << error;
}

TEST(VeskInterpreter, DeepRecursionWithinTheLimitCompletes) {
    std::string error;
    EXPECT_TRUE(
        runOnThread("FUNCTION F(N)\n  IF N > 0 THEN\n    F = G(N - 1) + 1\n  ELSE\n    F = 0\n"
                    "  END IF\nEND FUNCTION\nFUNCTION G(N)\n  G = F(N)\nEND FUNCTION\n"
                    "FUNCTION Main\n  X = F(400)\nEND FUNCTION\n",
                    "Main", error))
        << error;
}

TEST(VeskInterpreter, DeeplyNestedExpressionIsAStackOverflowNotACrash) {
    std::string source = "DIM A\nFUNCTION Main\n  A = 1\n  X = ";
    const int depth = 200000;
    for (int i = 0; i < depth; ++i) {
        source += "A + (";
    }
    source += "A" + std::string(depth, ')') + "\nEND FUNCTION\n";
    std::string error;
    EXPECT_FALSE(runOnThread(source, "Main", error));
    EXPECT_EQ(error, "At line 0 : MAIN: Stack overflow : MAIN");
}

TEST(VeskInterpreter, NestingTooDeepIsASyntaxError) {
    std::string calls = "FUNCTION Main\n  X = ";
    for (int i = 0; i < 1000; ++i) {
        calls += "F(";
    }
    calls += "1" + std::string(1000, ')') + "\nEND FUNCTION\n";
    // The function body and 200 IF blocks nest 201 deep: the 200th IF, on line 201, is refused.
    std::string blocks = "FUNCTION Main\n";
    for (int i = 0; i < 201; ++i) {
        blocks += "  IF 1 THEN\n";
    }
    for (int i = 0; i < 201; ++i) {
        blocks += "  END IF\n";
    }
    blocks += "END FUNCTION\n";

    for (const std::string& source : {calls, blocks}) {
        VeskScript script;
        EXPECT_FALSE(script.parse(source));
        EXPECT_NE(script.getLastError().find("Nesting too deep"), std::string::npos) << script.getLastError();
    }
    VeskScript script;
    script.parse(blocks);
    EXPECT_EQ(script.getLastError(), "At line 201 : Nesting too deep : 1");
}

TEST(VeskInterpreter, RecursionThroughAWideFrameIsAStackOverflowBeforeMemoryRunsShort) {
    // 3000 locals a frame: the runtime stack's bound on values stops the recursion long before the
    // call depth limit would.
    std::string source = "FUNCTION Wide(N)\n";
    for (int i = 0; i < 3000; ++i) {
        source += "  L" + std::to_string(i) + " = N\n";
    }
    source +=
        "  Wide = Wide2(N + 1)\nEND FUNCTION\nFUNCTION Wide2(N)\n  Wide2 = Wide(N)\nEND FUNCTION\n"
        "FUNCTION Main\n  X = Wide(0)\nEND FUNCTION\n";
    std::string error;
    EXPECT_FALSE(runOnThread(source, "Main", error));
    EXPECT_EQ(error, "At line 0 : WIDE: Stack overflow : WIDE");
}

TEST(VeskInterpreter, FailedParsesLeaveNothingBehind) {
    // Under LeakSanitizer, every node, variable and placeholder of these half-built trees must be
    // freed with the engine.
    const char* sources[] = {
        "FUNCTION Main\n  X = 1 +\nEND FUNCTION\n",
        "FUNCTION Main\n  IF A(1) THEN\n",
        "FUNCTION Main\n  SELECT CASE Y()\n  CASE 1\n    Z()\n  CASE Q\n",
        "CONST A = 1, B = C\n",
        "FUNCTION Main\n  FOR I = 1 TO F(2) STEP G(3)\n  NEXT J\n",
        "FUNCTION Main\n  Later(1, 2)\nEND FUNCTION\n",
        "FUNCTION Main(A, A)\n",
    };
    for (const char* source : sources) {
        VeskScript script;
        EXPECT_FALSE(script.parse(source)) << source;
    }
}

TEST(VeskInterpreter, NodesThatAreNoStatementOrNoValueAreRefused) {
    VeskScript script;
    VeskSyntaxNode block(nullptr);
    block.kind = NodeBlock;
    block.text = "BLOCK";
    block.line = 4;
    try {
        script.evaluate(&block);
        ADD_FAILURE() << "a block evaluated";
    } catch (const VeskRuntimeException& e) {
        EXPECT_EQ(e.getError(), "evaluate noneval sentence");
        EXPECT_EQ(e.getDetail(), "BLOCK");
        EXPECT_EQ(e.getLine(), 4);
    }
    VeskSyntaxNode constant(nullptr);
    constant.kind = NodeConstant;
    constant.text = "CONSTANT";
    try {
        script.interpret(&constant);
        ADD_FAILURE() << "a constant ran as a statement";
    } catch (const VeskRuntimeException& e) {
        EXPECT_EQ(e.getError(), "Unknown syntax");
        EXPECT_EQ(e.getFunction(), "CONSTANT");
    }
}

TEST(VeskInterpreter, FunctionWithTooManyLocalsIsRefused) {
    std::string source = "FUNCTION Main\n";
    for (int i = 0; i < 65536; ++i) {
        source += "  L" + std::to_string(i) + " = 0\n";
    }
    source += "END FUNCTION\n";
    VeskScript script;
    EXPECT_FALSE(script.parse(source));
    EXPECT_EQ(script.getLastError(), "At line 0 : Too many variables : L65535");
}

// The game asks a script to end when the player quits: long loops (of every kind, one calling a
// host function) and a long recursion each stop at their next pass or call, and the engine says
// why. Each would run for seconds on its own.
TEST(VeskInterpreter, StopRequestEndsARunningScriptAtItsNextLoopPassOrCall) {
    struct Case {
        const char* source;
        const char* error;
    };
    const Case cases[] = {
        {"FUNCTION Main()\n  X = 0\n  DO WHILE X < 300000000\n    X = X + 1\n  LOOP\nEND FUNCTION\n",
         "At line 0 : MAIN: Script stopped : MAIN"},
        {"FUNCTION Main()\n  N = 0\n  WHILE N < 100000000\n    N = N + 1, print(\"\")\n  WEND\nEND "
         "FUNCTION\n",
         "At line 0 : MAIN: Script stopped : MAIN"},
        {"FUNCTION Main()\n  FOR I = 1 TO 300000000\n  NEXT\nEND FUNCTION\n",
         "At line 0 : MAIN: Script stopped : MAIN"},
        {"FUNCTION Down(N)\n  IF N > 0 THEN\n    Down(N - 1)\n    Down(N - 1)\n  END IF\nEND FUNCTION\n"
         "FUNCTION Main()\n  Down(25)\nEND FUNCTION\n",
         "At line 0 : DOWN: Script stopped : DOWN"},
    };
    for (const Case& c : cases) {
        VeskScript script;
        script.addFunction("print", Grevan::print);
        ASSERT_TRUE(script.parse(c.source)) << script.getLastError();
        std::thread stopper([&script] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            script.requestStop();
        });
        EXPECT_FALSE(script.run("Main")) << c.source;
        stopper.join();
        EXPECT_EQ(script.getLastError(), c.error) << c.source;
        EXPECT_TRUE(script.isStopRequested());
    }
}

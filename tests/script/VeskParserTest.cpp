// The trees the statement and expression parsers build, and the tables behind them.

#include <gtest/gtest.h>

#include <string>

#include "script/VeskScript.h"

namespace {

// Parses `text` as one expression of a script that has the globals A, B, C and D.
VeskSyntaxNode* expressionOf(VeskScript& script, const std::string& text) {
    EXPECT_TRUE(script.parse("DIM A, B, C, D\n")) << script.getLastError();
    EXPECT_TRUE(script.scan(text + "\n"));
    return script.parseExpression(nullptr);
}

// The tree as text: operations in parentheses with their operator, leaves by name or value.
std::string shapeOf(VeskSyntaxNode* node) {
    switch (node->kind) {
        case NodeOperation:
            return "(" + shapeOf(node->left) + " " + node->text + " " + shapeOf(node->right) + ")";
        case NodeConstant:
            return node->variable->toText();
        default:
            return node->text;
    }
}

}  // namespace

TEST(VeskParser, ExpressionsGroupByPriorityWithOneReductionPerOperator) {
    struct Case {
        const char* source;
        const char* shape;
    } cases[] = {
        {"2 + 3 * 4", "14"},
        {"(2 + 3) * 4", "20"},
        {"-(2)", "-2"},
        {"1 - 2 - 3", "-4"},
        {"A - B * C - D", "(A - ((B * C) - D))"},
        {"A - B - C", "((A - B) - C)"},
        {"NOT A = B", "((0 NOT A) = B)"},
        {"A + * B", "(A + (0 * B))"},
        {"A * -B", "(A * (0 - B))"},
        {"A AND B OR C", "((A AND B) OR C)"},
        {"A < B = C", "((A < B) = C)"},
        {"-(A + B) * C", "((0 - (A + B)) * C)"},
        {"2.0 * 3", "6.000000"},
        {"\"a\" + 1", "a1"},
    };
    for (const Case& c : cases) {
        VeskScript script;
        EXPECT_EQ(shapeOf(expressionOf(script, c.source)), c.shape) << c.source;
    }
}

TEST(VeskParser, ExpressionErrorsCarryTheirDetail) {
    struct Case {
        const char* source;
        const char* error;
        const char* detail;
    } cases[] = {
        {"A B", "One or more operands are still in the stack", ""},
        {"THEN", "One or more operands are still in the stack", ""},
        {"A +", "Syntax error: missing operand for", "+"},
        {"(A", "Syntax error: missing operand for", "("},
        {"A[1]", "Internal error: failed to determine the operator", "["},
        {"1 / 0", "Division by zero", "/"},
        {"1 MOD 0", "Division by zero", "MOD"},
    };
    for (const Case& c : cases) {
        VeskScript script;
        try {
            expressionOf(script, c.source);
            ADD_FAILURE() << c.source << " parsed";
        } catch (const VeskSyntaxException& e) {
            EXPECT_EQ(e.getError(), c.error) << c.source;
            EXPECT_EQ(e.getDetail(), c.detail) << c.source;
            EXPECT_EQ(e.getLine(), 0) << c.source;
        }
    }
}

TEST(VeskParser, OperatorPrioritiesFollowTheTable) {
    struct Case {
        const char* op;
        int priority;
    } cases[] = {
        {")", 0},   {"NOT", 2}, {"*", 3},   {"MOD", 3}, {"-", 4},  {"<=", 6}, {"<>", 7},
        {"AND", 8}, {"XOR", 9}, {":=", 11}, {",", 12},  {"(", 99}, {"[", -1}, {"]", -1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(VeskScript::getOperatorPriority(c.op), c.priority) << c.op;
    }
}

TEST(VeskParser, ForCountsDownOnlyWithAConstantNegativeStep) {
    struct Case {
        const char* header;
        int op;
    } cases[] = {
        {"FOR I = 10 TO 1 STEP -1", OperatorGreaterEqual},
        {"FOR I = 10 TO 1 STEP 2 - 5", OperatorGreaterEqual},
        {"FOR I = 10 TO 1 STEP S", OperatorLessEqual},
        {"FOR I = 1 TO 10 STEP 0.0 - 0.5", OperatorLessEqual},
        {"FOR I = 1 TO 10", OperatorLessEqual},
    };
    for (const Case& c : cases) {
        VeskScript script;
        ASSERT_TRUE(
            script.parse(std::string("FUNCTION F\n  S = -1\n  ") + c.header + "\n  NEXT\nEND FUNCTION\n"))
            << script.getLastError();
        VeskSyntaxNode* function = script.findFunction("F");
        // S = -1, the start assignment, then the loop, whose block ends with the increment.
        ASSERT_EQ(function->statements.size(), 3u);
        EXPECT_EQ(function->statements[1]->kind, NodeAssign);
        VeskSyntaxNode* loop = function->statements[2];
        EXPECT_EQ(loop->kind, NodeLoop);
        EXPECT_EQ(loop->expr->op, c.op) << c.header;
        EXPECT_EQ(loop->body->statements.back()->kind, NodeAssign);
        EXPECT_EQ(loop->body->statements.back()->expr->op, OperatorAdd);
    }
}

TEST(VeskParser, SelectArmsCompareCopiesOfTheSelector) {
    VeskScript script;
    ASSERT_TRUE(
        script.parse("FUNCTION F(X)\n  SELECT CASE X\n  CASE 1, 2\n  CASE 3\n  END SELECT\nEND FUNCTION\n"))
        << script.getLastError();
    VeskSyntaxNode* select = script.findFunction("F")->statements[0];
    ASSERT_EQ(select->kind, NodeSelect);
    ASSERT_EQ(select->statements.size(), 2u);
    EXPECT_EQ(shapeOf(select->statements[0]->expr), "((X = 1) OR (X = 2))");
    EXPECT_EQ(shapeOf(select->statements[1]->expr), "(X = 3)");
    EXPECT_NE(select->statements[0]->expr->left->left, select->statements[1]->expr->left);
    EXPECT_EQ(select->statements[1]->body->statements.back()->kind, NodeExit);
}

TEST(VeskParser, FunctionSlotsGoToParametersThenReturnVariableThenLocals) {
    VeskScript script;
    ASSERT_TRUE(script.parse("FUNCTION F(A, B)\n  DIM L\n  M = 1\nEND FUNCTION\n")) << script.getLastError();
    VeskSyntaxNode* function = script.findFunction("F");
    EXPECT_EQ(function->localCount, 5);
    const char* order[] = {"A", "B", "F", "L", "M"};
    for (int slot = 0; slot < 5; ++slot) {
        EXPECT_EQ(function->locals.at(order[slot])->slot, slot) << order[slot];
    }
}

TEST(VeskParser, CallsBindToPlaceholdersThatTheDefinitionTakesOver) {
    VeskScript script;
    ASSERT_TRUE(script.parse("FUNCTION Main\n  Later 1\nEND FUNCTION\nFUNCTION Later(X)\nEND FUNCTION\n"))
        << script.getLastError();
    VeskSyntaxNode* call = script.findFunction("MAIN")->statements[0];
    EXPECT_EQ(call->kind, NodeCall);
    EXPECT_EQ(call->expr, script.findFunction("LATER"));
    EXPECT_EQ(call->expr->line, 4);
}

TEST(VeskParser, ConstantsAreGlobalAndConstant) {
    VeskScript script;
    ASSERT_TRUE(script.parse("CONST K = 2 * 3, Name = \"x\"\nDIM G\n")) << script.getLastError();
    VeskVariable* k = script.findGlobal("K");
    ASSERT_NE(k, nullptr);
    EXPECT_EQ(k->integerValue, 6);
    EXPECT_EQ(k->isConstant, 1);
    EXPECT_EQ(k->isGlobal, 1);
    EXPECT_EQ(script.findGlobal("G")->isConstant, 0);
    EXPECT_EQ(script.findGlobal("G")->isGlobal, 1);
}

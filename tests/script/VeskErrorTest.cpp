#include <gtest/gtest.h>

#include <utility>

#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

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

// A script that breaks a rule is refused as it is read, and the message names the line (0 where
// the reader has none), the rule and the word it stopped at. The tests run in the cases folder, so
// IMPORT reaches the files of cases/lib.
TEST(VeskError, ScriptsThatBreakARuleAreRefusedWithLineRuleAndWord) {
    const std::pair<const char*, const char*> cases[] = {
        // CALL closes a block like any word that starts no statement.
        {"FUNCTION Main\n  CALL print(\"x\")\nEND FUNCTION\n", "At line 2 : Missing END FUNCTION : CALL"},
        {"FUNCTION Main\n  print(\"a\"; \"b\")\nEND FUNCTION\n", "At line 2 : Missing ',' before : ;"},
        // A name used before anything assigns it is read as a call of a function of that name, so
        // assigning it afterwards conflicts with that function's name.
        {"FUNCTION Main\n  X = Total\n  Total = 1\nEND FUNCTION\n",
         "At line 0 : Name conflicts against a function name. : TOTAL"},
        {"CONST Lives = 3\nFUNCTION Main\n  Lives = 4\nEND FUNCTION\n",
         "At line 3 : Error, trying to assign a new value to a constant : ="},
        // A constant's name in an expression is a variable reference, not a constant, so one CONST cannot
        // be computed from another.
        {"CONST Width = 800\nCONST Area = Width * 2\n", "At line 2 : Not a proper constant value : ="},
        {"FUNCTION Main\n  CONST Inner = 1\nEND FUNCTION\n", "At line 2 : Missing END FUNCTION : CONST"},
        {"CONST Speed 3\n", "At line 1 : Syntax error, missing '=' : 3"},
        {"DIM Base\nCONST Speed = Base + 1\n", "At line 2 : Not a proper constant value : ="},
        {"DIM Speed\nCONST Speed = 3\n", "At line 2 : Redefine variable : SPEED"},
        {"CONST A = 1; B = 2\n", "At line 1 : Syntax error : ;"},
        {"DIM A\nDIM B, A\n", "At line 2 : Redim variable : A"},
        {"DIM A B\n", "At line 1 : Syntax error : B"},
        // So a bare DO .. LOOP at the end of a function reads END as its condition.
        {"FUNCTION Main\n  DO\n    EXIT DO\n  LOOP\nEND FUNCTION\n",
         "At line 2 : One or more operands are still in the stack : "},
        {"FUNCTION Main\n  DO WHILE 1\n  LOOP UNTIL 1\nEND FUNCTION\n",
         "At line 3 : Need a new line at : UNTIL"},
        {"FUNCTION Main\n  DO\n  LOOP FOR\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'WHILE' or 'UNTIL' for 'LOOP' : FOR"},
        {"FUNCTION Main\n  DO WHILE 1\n  WEND\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'LOOP' for 'DO' : WEND"},
        {"FUNCTION Main\n  DO FOR\n  LOOP\nEND FUNCTION\n",
         "At line 2 : Syntax error, missing 'WHILE' or 'UNTIL' for 'DO' : FOR"},
        {"FUNCTION Main\n  EXIT WHILE\nEND FUNCTION\n",
         "At line 2 : Syntax error, invalid procedure : WHILE"},
        {"FUNCTION Main\n  IF THEN\n  END IF\nEND FUNCTION\n",
         "At line 2 : One or more operands are still in the stack : "},
        {"FUNCTION Main\n  A = 1 +\nEND FUNCTION\n", "At line 2 : Syntax error: missing operand for : +"},
        // A variable followed by parentheses is two operands in a row: there are no arrays.
        {"FUNCTION Main\n  A = 1\n  B = A(1)\nEND FUNCTION\n",
         "At line 3 : One or more operands are still in the stack : "},
        {"FUNCTION Main\n  A = 1\n  B = A[1]\nEND FUNCTION\n",
         "At line 3 : Internal error: failed to determine the operator : ["},
        // A WHILE condition reports the line of the block it stands in: the function's line at the top of
        // a function, 0 inside an IF or a loop.
        {"FUNCTION Main\n  IF 1 THEN\n    WHILE 1 +\n    WEND\n  END IF\nEND FUNCTION\n",
         "At line 0 : Syntax error: missing operand for : +"},
        // A closing parenthesis the expression did not open ends it, and is left to the statement.
        {"FUNCTION Main\n  A = 1 + 2)\nEND FUNCTION\n", "At line 2 : Error, should be endline or comma : )"},
        // A unary operator before an empty pair of parentheses has no operand (found by the fuzzer).
        {"FUNCTION Main\n  X = -()\nEND FUNCTION\n", "At line 2 : Syntax error: missing operand for : -"},
        {"FUNCTION Main\n  A = (1 + 2\nEND FUNCTION\n", "At line 2 : Syntax error: missing operand for : ("},
        {"FUNCTION Main\n  FOR I 1 TO 3\n  NEXT\nEND FUNCTION\n",
         "At line 2 : Syntax error, missing '=' : 1"},
        {"FUNCTION Main\n  FOR I = 1 TO 3\n  WEND\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'NEXT' : WEND"},
        {"FUNCTION Main\n  FOR I = 1, 3\n  NEXT\nEND FUNCTION\n",
         "At line 2 : Syntax error, missing 'TO' : ,"},
        // NEXT stands alone on its line.
        {"FUNCTION Main\n  FOR I = 1 TO 3\n  NEXT I\nEND FUNCTION\n", "At line 3 : Need a new line at : I"},
        {"FUNCTION Main\n  FOR I = 1 TO 3\n  NEXT J\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'FOR' for NEXT : J"},
        {"FUNCTION Main\n  X = 1\nEND IF\n", "At line 3 : Missing END FUNCTION : IF"},
        {"FUNCTION Add X, Y\nEND FUNCTION\n", "At line 1 : Syntax error, missing ( : X"},
        {"FUNCTION Other\nEND FUNCTION\nFUNCTION Main\n  Other = 1\nEND FUNCTION\n",
         "At line 0 : Name conflicts against a function name. : OTHER"},
        {"FUNCTION 12\nEND FUNCTION\n", "At line 1 : Syntax error : 12"},
        {"FUNCTION Main\n  Missing(1)\nEND FUNCTION\n", "Function not implemented : MISSING"},
        {"FUNCTION Add(X, Y, X)\nEND FUNCTION\n", "At line 1 : Parameter redefined : X"},
        {"FUNCTION Add(X, 2)\nEND FUNCTION\n", "At line 1 : Syntax error, unknown word : 2"},
        {"FUNCTION Twice\nEND FUNCTION\nFUNCTION Twice\nEND FUNCTION\n",
         "At line 3 : Function redefined : TWICE"},
        {"FUNCTION Print(X)\nEND FUNCTION\n", "At line 1 : Function redefined : PRINT"},
        {"FUNCTION Main\n  IF 1 THEN\n    print(\"x\")\n  END FUNCTION\n",
         "At line 4 : Syntax error, missing END IF : FUNCTION"},
        {"FUNCTION Main\n  IF 1 = 1\n    print(\"x\")\n  END IF\nEND FUNCTION\n",
         "At line 2 : Syntax error, missing THEN : \n"},
        {"FUNCTION Main\n  IF 1 THEN print(\"no single-line IF\")\nEND FUNCTION\n",
         "At line 2 : Need a new line at : PRINT"},
        {"\nIMPORT lib.broken\n",
         "At line 2 : Failed to include the file lib/broken.fb : At line 2 : Syntax error, missing THEN : "
         "\n"},
        {"IMPORT lib.self\n",
         "At line 1 : Failed to include the file lib/self.fb : At line 1 : Circular import : lib/self.fb"},
        {"IMPORT lib.missing\n",
         "At line 1 : Failed to include the file lib/missing.fb : Failed to open file. : lib/missing.fb"},
        // Every function called so far must be defined when an imported file ends.
        {"IMPORT lib.needscaller\nFUNCTION DefinedLater\nEND FUNCTION\n",
         "At line 1 : Failed to include the file lib/needscaller.fb : Function not implemented : "
         "DEFINEDLATER"},
        // Importing a file twice defines its functions and globals twice.
        {"IMPORT lib.util\nIMPORT lib.util\n",
         "At line 2 : Failed to include the file lib/util.fb : At line 2 : Redim variable : SHARED"},
        {"FUNCTION Main\n  LET 1 = 2\nEND FUNCTION\n", "At line 2 : Syntax error, not a valid name : 1"},
        // CR LF line ends count one line each: the error below is on line 4.
        {"FUNCTION Main\r\n  print(\"crlf\\n\")\r\n  X = )\r\nEND FUNCTION\r\n",
         "At line 3 : One or more operands are still in the stack : "},
        {"FUNCTION Main\n  print(\"no final line end\\n\")\nEND FUNCTION",
         "At line 0 : Syntax not finished : "},
        {"FUNCTION Main\r  print(\"lone cr\\n\")\r  X = )\rEND FUNCTION\r",
         "At line 3 : One or more operands are still in the stack : "},
        // An underscore ends a name: MY_VAR is MY, _ and VAR, so this is a call of MY.
        {"FUNCTION Main\n  MY_VAR = 1\nEND FUNCTION\n", "Function not implemented : MY"},
        // A string may span lines; the lines after it are numbered low by as many lines.
        {"FUNCTION Main\n  print(\"first\nsecond\", \"\\n\")\n  X = )\nEND FUNCTION\n",
         "At line 3 : One or more operands are still in the stack : "},
        {"FUNCTION Main\n  print(\"never closed)\nEND FUNCTION\n",
         "At line 2 : Unclosed string. : missing \""},
        {"DIM A\nprint(\"statements belong in functions\")\n", "At line 2 : unknown word : PRINT"},
        {"FUNCTION Main\n  X = 1\n  SELECT CASE 1\n  CASE X\n  END SELECT\nEND FUNCTION\n",
         "At line 3 : Error: case value should be a constant : "},
        {"FUNCTION Main\n  SELECT CASE 1\n  print(\"x\")\n  END SELECT\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'CASE' : PRINT"},
        {"FUNCTION Main\n  SELECT 1\n  END SELECT\nEND FUNCTION\n",
         "At line 2 : Syntax error, missing 'CASE' for 'SELECT' : 1"},
        {"FUNCTION Main\n  SELECT CASE 1\n  END IF\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'SELECT' for 'END' : IF"},
        // Errors in the second statement of a line report line 0.
        {"FUNCTION Main\n  A = 1, B = )\nEND FUNCTION\n",
         "At line 0 : One or more operands are still in the stack : "},
        // A colon is a token of its own that no statement uses.
        {"FUNCTION Main\n  A = 1 : B = 2\nEND FUNCTION\n",
         "At line 2 : Error, should be endline or comma : :"},
        {"FUNCTION Main\n  A = 1, 2\nEND FUNCTION\n", "At line 2 : Error, should be symbol after comma : 2"},
        // Without a comma, B below is not yet a variable, so it is read as a call whose argument is = 2,
        // and the value has two operands.
        {"FUNCTION Main\n  A = 1 B = 2\nEND FUNCTION\n",
         "At line 2 : One or more operands are still in the stack : "},
        {"CONST Ratio = 10 / (5 - 5)\n", "At line 0 : Division by zero : /"},
        {"FUNCTION Main\n\n  X = 3 MOD 0\nEND FUNCTION\n", "At line 3 : Division by zero : MOD"},
        {"FUNCTION Main\n  WHILE 1\n  LOOP\nEND FUNCTION\n",
         "At line 3 : Syntax error, missing 'WEND' for 'WHILE' : LOOP"},
    };  // the script, the error it is refused with
    for (auto [text, error] : cases) {
        VeskScript script;
        script.addFunction("print", Grevan::print);
        script.addFunction("isNull", Grevan::isNull);
        EXPECT_FALSE(script.parse(text)) << text;
        EXPECT_EQ(script.getLastError(), error) << text;
    }
}

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

namespace {

// A script whose one function, Main, has this body.
std::string inMain(const std::string& body) {
    return "FUNCTION Main\n" + body + "END FUNCTION\n";
}

}  // namespace

TEST(VeskError, EachFailureReplacesTheLastErrorAndASuccessLeavesIt) {
    VeskScript script;
    EXPECT_EQ(script.getLastError(), "No error. : ");
    // A folder opens but cannot be read.
    EXPECT_FALSE(script.load("."));
    EXPECT_EQ(script.getLastError(), "Failed to open file. : .");
    EXPECT_TRUE(script.parse("DIM A\n"));
    EXPECT_EQ(script.getLastError(), "Failed to open file. : .");
}

// A script that breaks a rule is refused as it is read, and the message names the line (0 where
// the reader has none), the rule and the word it stopped at. The tests run in the cases folder, so
// IMPORT reaches the files of cases/lib.
TEST(VeskError, ScriptsThatBreakARuleAreRefusedWithLineRuleAndWord) {
    const std::pair<std::string, const char*> cases[] = {
        // CALL closes a block like any word that starts no statement.
        {inMain("CALL print(\"x\")\n"), "At line 2 : Missing END FUNCTION : CALL"},
        {inMain("print(\"a\"; \"b\")\n"), "At line 2 : Missing ',' before : ;"},
        // A name read before anything assigns it is a call, so assigning it later clashes with it.
        {inMain("X = Total\nTotal = 1\n"), "At line 0 : Name conflicts against a function name. : TOTAL"},
        {"CONST Lives = 3\n" + inMain("Lives = 4\n"),
         "At line 3 : Error, trying to assign a new value to a constant : ="},
        // A constant's name in an expression is a variable, so no CONST is computed from another.
        {"CONST Width = 800\nCONST Area = Width * 2\n", "At line 2 : Not a proper constant value : ="},
        {"DIM Speed\nCONST Speed = 3\n", "At line 2 : Redefine variable : SPEED"},
        {"DIM A B\n", "At line 1 : Syntax error : B"},
        {"CONST Least = (-2147483647 - 1) / -1\n", "At line 0 : Division by zero : /"},
        {inMain("\nX = 3 MOD 0\n"), "At line 3 : Division by zero : MOD"},
        {inMain("DO\nLOOP FOR\n"), "At line 3 : Syntax error, missing 'WHILE' or 'UNTIL' for 'LOOP' : FOR"},
        {inMain("DO WHILE 1\nWEND\n"), "At line 3 : Syntax error, missing 'LOOP' for 'DO' : WEND"},
        {inMain("A = 1 +\n"), "At line 2 : Syntax error: missing operand for : +"},
        // A variable followed by parentheses is two operands in a row: there are no arrays.
        {inMain("A = 1\nB = A(1)\n"), "At line 3 : One or more operands are still in the stack : "},
        {inMain("A = 1\nB = A[1]\n"), "At line 3 : Internal error: failed to determine the operator : ["},
        // A WHILE condition reports its block's line: 0 inside an IF or a loop.
        {inMain("IF 1 THEN\nWHILE 1 +\nWEND\nEND IF\n"), "At line 0 : Syntax error: missing operand for : +"},
        // A unary operator before an empty pair of parentheses has no operand (found by the fuzzer).
        {inMain("X = -()\n"), "At line 2 : Syntax error: missing operand for : -"},
        {inMain("FOR I 1 TO 3\nNEXT\n"), "At line 2 : Syntax error, missing '=' : 1"},
        {inMain("FOR I = 1 TO 3\nWEND\n"), "At line 3 : Syntax error, missing 'NEXT' : WEND"},
        {inMain("FOR I = 1 TO F(2) STEP G(3)\nNEXT J\n"),
         "At line 3 : Syntax error, missing 'FOR' for NEXT : J"},
        {"FUNCTION Add X, Y\nEND FUNCTION\n", "At line 1 : Syntax error, missing ( : X"},
        {"FUNCTION Add(X, Y, X)\nEND FUNCTION\n", "At line 1 : Parameter redefined : X"},
        {"FUNCTION Add(X, 2)\nEND FUNCTION\n", "At line 1 : Syntax error, unknown word : 2"},
        {"FUNCTION Print(X)\nEND FUNCTION\n", "At line 1 : Function redefined : PRINT"},
        {"FUNCTION Main\nIF 1 THEN\nEND FUNCTION\n", "At line 3 : Syntax error, missing END IF : FUNCTION"},
        {inMain("IF 1 THEN print(\"no single-line IF\")\n"), "At line 2 : Need a new line at : PRINT"},
        {inMain("X = 1\nSELECT CASE 1\nCASE X\nEND SELECT\n"),
         "At line 3 : Error: case value should be a constant : "},
        {inMain("SELECT CASE 1\nX = 1\nEND SELECT\n"), "At line 3 : Syntax error, missing 'CASE' : X"},
        {inMain("SELECT 1\nEND SELECT\n"), "At line 2 : Syntax error, missing 'CASE' for 'SELECT' : 1"},
        {"IMPORT lib.self\n",
         "At line 1 : Failed to include the file lib/self.fb : At line 1 : Circular import : lib/self.fb"},
        // Every function called so far must be defined when an imported file ends.
        {"IMPORT lib.needscaller\nFUNCTION DefinedLater\nEND FUNCTION\n",
         "At line 1 : Failed to include the file lib/needscaller.fb : Function not implemented : "
         "DEFINEDLATER"},
        // Importing a file twice defines its functions and globals twice.
        {"IMPORT lib.util\nIMPORT lib.util\n",
         "At line 2 : Failed to include the file lib/util.fb : At line 2 : Redim variable : SHARED"},
        {inMain("LET 1 = 2\n"), "At line 2 : Syntax error, not a valid name : 1"},
        // CR LF, and a lone CR, end a line (and a comment) each.
        {"FUNCTION Main ' comment\r\n\rX = )\r",
         "At line 3 : One or more operands are still in the stack : "},
        // The last word of a file without a final line end is lost.
        {"FUNCTION Main\nEND FUNCTION", "At line 0 : Syntax not finished : "},
        // An underscore ends a name: MY_VAR is MY, _ and VAR, so this is a call of MY.
        {inMain("MY_VAR = 1\n"), "Function not implemented : MY"},
        // A string may span lines; the lines after it are numbered low by as many lines.
        {inMain("print(\"a\nb\")\nX = )\n"), "At line 3 : One or more operands are still in the stack : "},
        {inMain("\nprint(\"never closed)\n"), "At line 3 : Unclosed string. : missing \""},
        {"DIM A\nprint(\"statements belong in functions\")\n", "At line 2 : unknown word : PRINT"},
        // A colon is a token of its own that no statement uses.
        {inMain("A = 1 : B = 2\n"), "At line 2 : Error, should be endline or comma : :"},
        {inMain("A = 1, 2\n"), "At line 2 : Error, should be symbol after comma : 2"},
    };  // the script, the error it is refused with
    for (const auto& [text, error] : cases) {
        VeskScript script;
        script.addFunction("print", Grevan::print);
        EXPECT_FALSE(script.parse(text)) << text;
        EXPECT_EQ(script.getLastError(), error) << text;
    }
}

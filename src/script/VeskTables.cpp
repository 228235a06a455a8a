#include "script/VeskTables.h"

#include <cstring>

const VeskKeyword tokenStrings[kKeywordCount] = {
    {3, "\n"},    {4, "IF"},      {5, "FOR"},    {6, "NEXT"},   {7, "ELSE"}, {8, "EXIT"},
    {9, "DIM"},   {10, "IMPORT"}, {11, "CONST"}, {12, "OR"},    {13, "AND"}, {14, "XOR"},
    {15, "NOT"},  {16, "MOD"},    {17, "TO"},    {18, "CALL"},  {19, "LET"}, {20, "FUNCTION"},
    {21, "END"},  {22, "THEN"},   {23, "STEP"},  {27, "WHILE"}, {24, "DO"},  {26, "UNTIL"},
    {25, "LOOP"}, {29, "SELECT"}, {30, "CASE"},  {28, "WEND"},  {31, ","},   {44, ";"},
    {43, ":"},
};

// ":=" is never produced by the lexer (":" is a token of its own); the row stays as part of the
// table. The gaps in the priority scale are as designed.
const VeskOperatorRow opPriority[kOperatorRowCount] = {
    {")", 0, 34},   {"NOT", 2, 15}, {"*", 3, 47},  {"/", 3, 48},   {"MOD", 3, 16},
    {"+", 4, 49},   {"-", 4, 50},   {"<", 6, 40},  {"<=", 6, 41},  {">", 6, 38},
    {">=", 6, 39},  {"=", 7, 45},   {"<>", 7, 42}, {"AND", 8, 13}, {"OR", 9, 12},
    {"XOR", 9, 14}, {":=", 11, 46}, {",", 12, 31}, {"(", 99, 33},
};

const char operators[] = "()[]=><+-*/";

const VeskOperatorRow* findOperatorRow(const char* text) {
    for (const VeskOperatorRow& row : opPriority) {
        if (std::strcmp(row.text, text) == 0) {
            return &row;
        }
    }
    return nullptr;
}

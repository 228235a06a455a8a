#pragma once

// The vocabulary of the Vesk language: token kinds, node kinds, operator identities and the three
// constant tables the lexer and the expression parser look words up in.

// Token kinds. Keyword ids equal the `id` column of tokenStrings; they are not in table order.
enum VeskTokenId {
    TokenName = 0,
    TokenString = 1,
    TokenNumber = 2,
    TokenEndOfLine = 3,
    TokenIf = 4,
    TokenFor = 5,
    TokenNext = 6,
    TokenElse = 7,
    TokenExit = 8,
    TokenDim = 9,
    TokenImport = 10,
    TokenConst = 11,
    TokenOr = 12,
    TokenAnd = 13,
    TokenXor = 14,
    TokenNot = 15,
    TokenMod = 16,
    TokenTo = 17,
    TokenCall = 18,
    TokenLet = 19,
    TokenFunction = 20,
    TokenEnd = 21,
    TokenThen = 22,
    TokenStep = 23,
    TokenDo = 24,
    TokenLoop = 25,
    TokenUntil = 26,
    TokenWhile = 27,
    TokenWend = 28,
    TokenSelect = 29,
    TokenCase = 30,
    TokenComma = 31,
    TokenOperator = 32,
    TokenColon = 43,
    TokenSemicolon = 44,
};

// Operator identities stored in an operation node's `op`; the word operators share their keyword id.
enum VeskOperatorId {
    OperatorOr = 12,
    OperatorAnd = 13,
    OperatorXor = 14,
    OperatorNot = 15,
    OperatorMod = 16,
    OperatorComma = 31,
    OperatorOpen = 33,
    OperatorClose = 34,
    OperatorGreater = 38,
    OperatorGreaterEqual = 39,
    OperatorLess = 40,
    OperatorLessEqual = 41,
    OperatorNotEqual = 42,
    OperatorEqual = 45,
    OperatorAssign = 46,
    OperatorMultiply = 47,
    OperatorDivide = 48,
    OperatorAdd = 49,
    OperatorSubtract = 50,
};

enum VeskNodeKind {
    NodeFunction = 0,
    NodeAssign = 1,
    NodeIf = 2,
    NodeLoop = 3,
    NodeBlock = 4,
    NodeVariable = 5,
    NodeConstant = 6,
    NodeCall = 7,
    NodeOperation = 8,
    NodeExternal = 9,
    NodeExit = 10,
    NodeSelect = 11,
};

struct VeskKeyword {
    int id;
    char word[12];
};

struct VeskOperatorRow {
    char text[12];
    int priority;  // lower binds tighter
    int id;
};

const int kKeywordCount = 31;
const int kOperatorRowCount = 19;

// Searched in row order, first exact match wins.
extern const VeskKeyword tokenStrings[kKeywordCount];
extern const VeskOperatorRow opPriority[kOperatorRowCount];
// A one-character word made of one of these is an operator token. "[" and "]" have no row in
// opPriority: the language has no arrays.
extern const char operators[];

// The row of opPriority whose text is `text`, or null.
const VeskOperatorRow* findOperatorRow(const char* text);

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "script/VeskScript.h"

namespace {

struct Token {
    int id;
    std::string text;
    int line;
    bool operator==(const Token& other) const {
        return id == other.id && text == other.text && line == other.line;
    }
};

std::ostream& operator<<(std::ostream& out, const Token& token) {
    return out << "{" << token.id << ", \"" << token.text << "\", " << token.line << "}";
}

std::vector<Token> tokensOf(const std::string& text) {
    VeskScript script;
    EXPECT_TRUE(script.scan(text)) << script.getLastError();
    std::vector<Token> tokens;
    try {
        for (;;) {
            VeskToken& token = script.getToken();
            tokens.push_back({token.id, token.text, token.line});
            script.popToken();
        }
    } catch (const VeskSyntaxException& e) {
        EXPECT_EQ(e.getError(), "Syntax not finished");
    }
    return tokens;
}

const int kEol = TokenEndOfLine;
const int kOp = TokenOperator;

}  // namespace

TEST(VeskLexer, OperatorPairsMergeWhateverStandsBetween) {
    std::vector<Token> merged = {{TokenName, "A", 1}, {kOp, "<=", 1}, {TokenName, "B", 1}, {kEol, "\n", 1}};
    EXPECT_EQ(tokensOf("A<=B\n"), merged);
    EXPECT_EQ(tokensOf("A < = B\n"), merged);
    EXPECT_EQ(tokensOf("a<>b >= c\n")[1], (Token{kOp, "<>", 1}));
    EXPECT_EQ(tokensOf("a<>b >= c\n")[3], (Token{kOp, ">=", 1}));
    const char* unmerged[][2] = {{"=<\n", "<"}, {"==\n", "="}, {"><\n", "<"}, {"=>\n", ">"}};
    for (const auto& pair : unmerged) {
        EXPECT_EQ(tokensOf(pair[0])[1], (Token{kOp, pair[1], 1})) << pair[0];
    }
    // Only the previous token's text counts: a string literal "<" takes the "=" too.
    EXPECT_EQ(tokensOf("\"<\"=\n")[0], (Token{TokenString, "<=", 1}));
}

TEST(VeskLexer, MinusIsAnOperatorOfItsOwn) {
    std::vector<Token> expected = {
        {TokenName, "X", 1}, {kOp, "=", 1}, {kOp, "-", 1}, {TokenNumber, "1", 1}, {kEol, "\n", 1}};
    EXPECT_EQ(tokensOf("X=-1\n"), expected);
}

TEST(VeskLexer, StringEscapesResolveAndCaseIsKept) {
    struct Case {
        const char* source;
        const char* text;
    } cases[] = {
        {"\"a\\tb\"\n", "a\tb"}, {"\"\\q\"\n", "q"},       {"\"x\\ny\\r\"\n", "x\ny\r"},
        {"\"\\\\\"\n", "\\"},    {"\"MiXeD\"\n", "MiXeD"}, {"\"\"\n", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tokensOf(c.source)[0], (Token{TokenString, c.text, 1})) << c.source;
    }
}

TEST(VeskLexer, CommentsEndAtLineFeedOrCarriageReturnLineFeed) {
    std::vector<Token> expected = {{TokenName, "PRINT", 1},
                                   {TokenString, "x", 1},
                                   {kEol, "\n", 1},
                                   {TokenName, "Y", 2},
                                   {kEol, "\n", 2}};
    EXPECT_EQ(tokensOf("print \"x\" ' comment\ny\n"), expected);
    EXPECT_EQ(tokensOf("print \"x\" ' comment\r\ny\n"), expected);
    // A lone carriage return does not end a comment.
    std::vector<Token> swallowed = {{kEol, "\n", 1}, {TokenName, "Z", 2}, {kEol, "\n", 2}};
    EXPECT_EQ(tokensOf("' comment\r y\nz\n"), swallowed);
}

TEST(VeskLexer, EveryLineEndFormCountsOneLine) {
    std::vector<Token> expected = {{TokenName, "A", 1}, {kEol, "\n", 1},     {TokenName, "B", 2},
                                   {kEol, "\n", 2},     {TokenName, "C", 3}, {kEol, "\n", 3}};
    EXPECT_EQ(tokensOf("a\nb\nc\n"), expected);
    EXPECT_EQ(tokensOf("a\r\nb\r\nc\r\n"), expected);
    EXPECT_EQ(tokensOf("a\rb\rc\r"), expected);
}

TEST(VeskLexer, WordsAreLettersDigitsAndDots) {
    std::vector<Token> expected = {{TokenName, "MY", 1},    {TokenName, "_", 1},       {TokenName, "VAR", 1},
                                   {TokenNumber, "2nd", 1}, {TokenNumber, "1.2.3", 1}, {TokenName, "&", 1},
                                   {kEol, "\n", 1}};
    EXPECT_EQ(tokensOf("my_var 2nd 1.2.3&\n"), expected);
}

TEST(VeskLexer, KeywordsAndPunctuationTakeTheirTableIds) {
    struct Case {
        const char* word;
        int id;
    } cases[] = {
        {"else", TokenElse}, {"WHILE", TokenWhile}, {"Wend", TokenWend}, {";", TokenSemicolon},
        {":", TokenColon},   {",", TokenComma},     {"do", TokenDo},     {"loop", TokenLoop},
        {"mod", TokenMod},   {"elseif", TokenName}, {"case", TokenCase}, {"select", TokenSelect},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tokensOf(std::string(c.word) + "\n")[0].id, c.id) << c.word;
    }
}

TEST(VeskLexer, LastWordWithoutLineEndIsLost) {
    std::vector<Token> expected = {{TokenName, "X", 1}, {kEol, "\n", 1}};
    EXPECT_EQ(tokensOf("x\nEND"), expected);
}

TEST(VeskLexer, StringSpanningLinesKeepsTheLineOfItsStart) {
    std::vector<Token> expected = {{TokenString, "a\nb", 1}, {TokenName, "X", 1}, {kEol, "\n", 1}};
    EXPECT_EQ(tokensOf("\"a\nb\" x\n"), expected);
}

TEST(VeskLexer, UnclosedStringFailsWithItsLine) {
    VeskScript script;
    EXPECT_FALSE(script.parse("FUNCTION Main\n\n  print(\"open\nEND FUNCTION\n"));
    EXPECT_EQ(script.getLastError(), "At line 3 : Unclosed string. : missing \"");
}

TEST(VeskLexer, ParsePutsTheSetAsideQueueBackWhateverHappens) {
    const char* texts[] = {"FUNCTION Main\nEND FUNCTION\n", "FUNCTION Main\n  IF\nEND FUNCTION\n",
                           "\"unclosed\n", "stray words\n"};
    for (const char* text : texts) {
        VeskScript script;
        script.pushToken(VeskToken(7, TokenName, "WAITING"));
        script.parse(text);
        VeskToken& token = script.getToken();
        EXPECT_EQ(token.text, "WAITING") << text;
        EXPECT_EQ(token.line, 7);
        script.popToken();
        EXPECT_THROW(script.getToken(), VeskSyntaxException) << text;
    }
}

TEST(VeskLexer, TokenAfterTheLastIsSyntaxNotFinished) {
    VeskScript script;
    try {
        script.getToken();
        FAIL() << "an empty queue gave a token";
    } catch (const VeskSyntaxException& e) {
        EXPECT_EQ(e.getError(), "Syntax not finished");
        EXPECT_EQ(e.getDetail(), "");
        EXPECT_EQ(e.getLine(), 0);
    }
}

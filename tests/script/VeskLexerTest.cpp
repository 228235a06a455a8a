// The lexer's rules are checked through scripts in cases/lexer.fb and the refused scripts of
// VeskErrorTest; this is the queue handling that IMPORT relies on.

#include <gtest/gtest.h>

#include "script/VeskScript.h"

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

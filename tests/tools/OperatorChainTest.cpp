#include "OperatorChain.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

// "A - B * C" to the chain's items: words and symbols separated by blanks, operators told by text.
OperatorChain chainOf(const std::string& text) {
    std::vector<OperatorChain::Item> items;
    std::istringstream in(text);
    std::string word;
    while (in >> word) {
        const bool isOperator = word == "+" || word == "-" || word == "*" || word == "/" || word == "MOD" ||
                                word == "<" || word == "<=" || word == ">" || word == ">=" || word == "=" ||
                                word == "<>" || word == "AND" || word == "OR" || word == "XOR" ||
                                word == "NOT";
        items.push_back({word, isOperator});
    }
    return OperatorChain(std::move(items));
}

struct GroupingCase {
    const char* chain;
    const char* language;  // as the expression parser groups it
    const char* usual;     // as arithmetic usually does
};

TEST(OperatorChain, GroupsAsTheLanguageAndAsUsualArithmetic) {
    const std::vector<GroupingCase> cases = {
        {"A - B - C", "((A - B) - C)", "((A - B) - C)"},
        {"A + B * C", "(A + (B * C))", "(A + (B * C))"},
        {"A * B + C", "((A * B) + C)", "((A * B) + C)"},
        {"X - W / 2 - 10", "(X - ((W / 2) - 10))", "((X - (W / 2)) - 10)"},
        {"100 - 5 * 2 + 1", "(100 - ((5 * 2) + 1))", "((100 - (5 * 2)) + 1)"},
        {"A < B + 1 AND C", "(A < ((B + 1) AND C))", "((A < (B + 1)) AND C)"},
        {"A = B AND C = D", "((A = B) AND (C = D))", "((A = B) AND (C = D))"},
        {"- A * B", "((-A) * B)", "((-A) * B)"},
        {"A * - B + C", "((A * (-B)) + C)", "((A * (-B)) + C)"},
        {"NOT A = B", "((NOT A) = B)", "(NOT (A = B))"},
        {"NOT A AND B", "((NOT A) AND B)", "((NOT A) AND B)"},
        {"A MOD B - C", "((A MOD B) - C)", "((A MOD B) - C)"},
    };
    for (const GroupingCase& c : cases) {
        const OperatorChain chain = chainOf(c.chain);
        EXPECT_EQ(chain.languageGrouping().value_or("none"), c.language) << c.chain;
        EXPECT_EQ(chain.usualGrouping().value_or("none"), c.usual) << c.chain;
        EXPECT_EQ(chain.warning().empty(), std::string(c.language) == c.usual) << c.chain;
    }
}

TEST(OperatorChain, WarnsAboutStrayOperatorsAndStaysQuietOnBrokenChains) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"A + * B",
         "A + *B: '*' stands where an operand is expected and is read as 0 * B; write the operand it lacks"},
        {"X - W / 2 - 10",
         "X - W / 2 - 10 is grouped as X - ((W / 2) - 10), not as (X - (W / 2)) - 10; add parentheses to say "
         "which is meant"},
        {"A B", ""},
        {"A +", ""},
        {"", ""},
    };
    for (const auto& [text, warning] : cases) {
        EXPECT_EQ(chainOf(text).warning(), warning) << text;
    }
}

}  // namespace

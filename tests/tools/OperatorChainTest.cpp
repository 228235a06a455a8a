#include "OperatorChain.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::set<std::string> kOperators = {"+",  "-", "*",  "/",   "MOD", "<",   "<=", ">",
                                          ">=", "=", "<>", "AND", "OR",  "XOR", "NOT"};

// "A - B * C" to the chain's items: words and symbols separated by blanks, operators told by text.
OperatorChain chainOf(const std::string& text) {
    std::vector<OperatorChain::Item> items;
    std::istringstream in(text);
    std::string word;
    while (in >> word) {
        items.push_back({word, kOperators.count(word) > 0});
    }
    return OperatorChain(std::move(items));
}

// The language case check_warns_on_chains_that_group_unusually shows the chains that warn, with
// both groupings, and the common ones that do not; these are the rest.
TEST(OperatorChain, GroupsAsTheLanguageAndAsUsualArithmeticAndBrokenChainsGiveNoWarning) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"A = B AND C = D", "((A = B) AND (C = D))"},
        {"A * - B + C", "((A * (-B)) + C)"},
        {"A MOD B - C", "((A MOD B) - C)"},
        {"A B", "none"},
        {"A +", "none"},
        {"", "none"},
    };
    for (const auto& [text, grouping] : cases) {
        const OperatorChain chain = chainOf(text);
        EXPECT_EQ(chain.languageGrouping().value_or("none"), grouping) << text;
        EXPECT_EQ(chain.usualGrouping().value_or("none"), grouping) << text;
        EXPECT_EQ(chain.warning(), "") << text;
    }
}

}  // namespace

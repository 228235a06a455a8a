#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// One level of an expression as the author wrote it: operands (a parenthesised group or a call is
// one operand, already rendered as text) and the operators between and before them. It tells how
// the language groups the chain and how the usual precedence of arithmetic would, so that an author
// can be warned where the two differ.
//
// The language reduces at most once per incoming operator, so P - Q * R - S is P - ((Q * R) - S),
// and an operator where an operand is expected applies to the one operand after it as 0 op operand,
// so NOT A = B is (NOT A) = B. Usually NOT takes the whole comparison after it, and only "-" and "+"
// stand before an operand.
class OperatorChain {
  public:
    static const std::size_t kMaxCheckedItems = 400;

    struct Item {
        std::string text;  // upper-case operator words, as the lexer gives them
        bool isOperator = false;
    };

    explicit OperatorChain(std::vector<Item> items) : items(std::move(items)) {}

    // Both groupings fully parenthesised; nothing when the chain does not reduce to one operand.
    std::optional<std::string> languageGrouping() const;
    std::optional<std::string> usualGrouping() const;
    // The chain as written, operands and operators separated by blanks, a unary sign joined to its
    // operand.
    std::string source() const;
    // One line for the author when the groupings differ, or when an operator other than "-", "+"
    // or NOT stands where an operand is expected; empty otherwise.
    std::string warning() const;

  private:
    bool isUnaryAt(std::size_t index) const;
    std::string parseUsual(std::size_t& position, int loosestPriority) const;
    std::string parseUsualOperand(std::size_t& position) const;

    std::vector<Item> items;
};

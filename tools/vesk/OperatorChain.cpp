#include "OperatorChain.h"

#include "script/VeskScript.h"

namespace {

// Where NOT binds in the usual order: looser than the comparisons, tighter than AND.
const int kUsualNotPriority = 7;

std::string binary(const std::string& left, const std::string& op, const std::string& right) {
    return "(" + left + " " + op + " " + right + ")";
}

std::string unary(const std::string& op, const std::string& operand) {
    const bool word = !op.empty() && std::isalpha(static_cast<unsigned char>(op[0]));
    return "(" + op + (word ? " " : "") + operand + ")";
}

std::string withoutOuterParentheses(const std::string& grouping) {
    if (grouping.size() >= 2 && grouping.front() == '(' && grouping.back() == ')') {
        return grouping.substr(1, grouping.size() - 2);
    }
    return grouping;
}

bool isUsualPrefix(const std::string& op) {
    return op == "-" || op == "+" || op == "NOT";
}

}  // namespace

bool OperatorChain::isUnaryAt(std::size_t index) const {
    return items[index].isOperator && (index == 0 || items[index - 1].isOperator);
}

// The expression parser's own steps, with texts for nodes: one reduction per incoming operator,
// unary operators applied as soon as their operand is complete.
std::optional<std::string> OperatorChain::languageGrouping() const {
    std::vector<std::string> operators;
    std::vector<std::string> operands;
    int pendingUnary = 0;
    bool expectOperand = true;
    auto reduceTop = [&]() {
        if (operands.size() < 2 || operators.empty()) {
            return false;
        }
        std::string right = std::move(operands.back());
        operands.pop_back();
        operands.back() = binary(operands.back(), operators.back(), right);
        operators.pop_back();
        return true;
    };
    for (const Item& item : items) {
        if (item.isOperator) {
            if (!operators.empty() && !expectOperand &&
                VeskScript::getOperatorPriority(item.text) >=
                    VeskScript::getOperatorPriority(operators.back()) &&
                !reduceTop()) {
                return std::nullopt;
            }
            if (expectOperand) {
                ++pendingUnary;
            }
            expectOperand = true;
            operators.push_back(item.text);
            continue;
        }
        operands.push_back(item.text);
        for (; pendingUnary > 0 && !operators.empty(); --pendingUnary) {
            operands.back() = unary(operators.back(), operands.back());
            operators.pop_back();
        }
        expectOperand = false;
    }
    while (!operators.empty()) {
        if (!reduceTop()) {
            return std::nullopt;
        }
    }
    if (operands.size() != 1) {
        return std::nullopt;
    }
    return operands.front();
}

std::optional<std::string> OperatorChain::usualGrouping() const {
    std::size_t position = 0;
    std::string grouping = parseUsual(position, VeskScript::getOperatorPriority("XOR"));
    if (grouping.empty() || position != items.size()) {
        return std::nullopt;
    }
    return grouping;
}

// Operators of priority up to loosestPriority, each level grouping from the left.
std::string OperatorChain::parseUsual(std::size_t& position, int loosestPriority) const {
    std::string left = parseUsualOperand(position);
    while (!left.empty() && position < items.size() && items[position].isOperator) {
        const std::string& op = items[position].text;
        const int priority = VeskScript::getOperatorPriority(op);
        if (priority > loosestPriority) {
            break;
        }
        ++position;
        std::string right = parseUsual(position, priority - 1);
        if (right.empty()) {
            return "";
        }
        left = binary(left, op, right);
    }
    return left;
}

std::string OperatorChain::parseUsualOperand(std::size_t& position) const {
    if (position >= items.size()) {
        return "";
    }
    const Item& item = items[position++];
    if (!item.isOperator) {
        return item.text;
    }
    std::string operand =
        item.text == "NOT" ? parseUsual(position, kUsualNotPriority) : parseUsualOperand(position);
    return operand.empty() ? "" : unary(item.text, operand);
}

std::string OperatorChain::source() const {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool joinToNext = isUnaryAt(i) && items[i].text != "NOT";
        text += items[i].text;
        if (i + 1 < items.size() && !joinToNext) {
            text += ' ';
        }
    }
    return text;
}

std::string OperatorChain::warning() const {
    // Longer chains are machine-made; comparing them would cost time and stack for nothing.
    if (items.size() > kMaxCheckedItems) {
        return "";
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (isUnaryAt(i) && !isUsualPrefix(items[i].text) && i + 1 < items.size()) {
            const std::string& operand = items[i + 1].text;
            return source() + ": '" + items[i].text +
                   "' stands where an operand is expected and is read as 0 " + items[i].text + " " + operand +
                   "; write the operand it lacks";
        }
    }
    const std::optional<std::string> language = languageGrouping();
    const std::optional<std::string> usual = usualGrouping();
    if (!language || !usual || *language == *usual) {
        return "";
    }
    return source() + " is grouped as " + withoutOuterParentheses(*language) + ", not as " +
           withoutOuterParentheses(*usual) + "; add parentheses to say which is meant";
}

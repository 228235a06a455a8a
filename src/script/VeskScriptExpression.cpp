// The expression parser: operator precedence over an operator stack and an operand stack, with
// constant folding.

#include "script/VeskDepthGuard.h"
#include "script/VeskScript.h"

namespace {

bool isOperandToken(int id) {
    return id == TokenName || id == TokenString || id == TokenNumber;
}

bool isOperatorToken(int id) {
    return id == TokenOperator || (id >= TokenOr && id <= TokenMod);
}

}  // namespace

// The expression ends at the first token that cannot continue it, which stays in the queue.
VeskSyntaxNode* VeskScript::parseExpression(VeskSyntaxNode* owner) {
    const int errorLine = owner ? owner->line : 0;
    VeskDepthGuard depth(nesting);
    if (nesting > kMaxNesting) {
        throw VeskSyntaxException("Nesting too deep", getToken().text, errorLine);
    }
    std::vector<std::string> operatorStack;
    std::vector<VeskSyntaxNode*> operands;
    bool expectOperand = true;
    int pendingUnary = 0;
    std::vector<int> savedPendingUnary;

    for (;;) {
        VeskToken& token = getToken();
        if (isOperandToken(token.id)) {
            operands.push_back(makeOperand(token, owner));
            applyPendingUnary(operatorStack, operands, pendingUnary, owner, errorLine);
            expectOperand = false;
            continue;
        }
        if (!isOperatorToken(token.id)) {
            break;
        }
        std::string text = token.text;
        if (text == ")") {
            while (!operatorStack.empty() && operatorStack.back() != "(") {
                reduceTop(operatorStack, operands, errorLine);
            }
            if (operatorStack.empty()) {
                break;  // the end of the caller's argument list
            }
            popToken();
            operatorStack.pop_back();
            pendingUnary = savedPendingUnary.back();
            savedPendingUnary.pop_back();
            expectOperand = false;  // a parenthesised group is an operand
            applyPendingUnary(operatorStack, operands, pendingUnary, owner, errorLine);
            continue;
        }
        // Exactly one reduction per incoming operator, not a loop down the stack: P - Q * R - S
        // groups as P - ((Q * R) - S). This is how the language reads such chains.
        if (!operatorStack.empty() && !expectOperand && text != "(" &&
            getOperatorPriority(text) >= getOperatorPriority(operatorStack.back())) {
            reduceTop(operatorStack, operands, errorLine);
        }
        if (text == "(") {
            savedPendingUnary.push_back(pendingUnary);
            pendingUnary = 0;
        } else if (expectOperand) {
            ++pendingUnary;  // an operator in operand position is unary
        }
        expectOperand = true;
        operatorStack.push_back(std::move(text));
        popToken();
    }
    while (!operatorStack.empty()) {
        reduceTop(operatorStack, operands, errorLine);
    }
    if (operands.size() != 1) {
        throw VeskSyntaxException("One or more operands are still in the stack", "", errorLine);
    }
    return operands.back();
}

VeskSyntaxNode* VeskScript::makeOperand(const VeskToken& token, VeskSyntaxNode* owner) {
    if (token.id == TokenName) {
        std::string name = token.text;
        int line = token.line;
        VeskSyntaxNode* node = newNode(owner);
        node->line = line;
        node->text = name;
        popToken();
        if (VeskVariable* variable = getVariable(owner, name, false)) {
            node->kind = NodeVariable;
            bindVariable(node, variable);
        } else {
            // A name that is not a variable yet is a call, even if it is assigned further down.
            node->kind = NodeCall;
            parseCALL(node);
        }
        return node;
    }
    VeskVariable value;
    if (token.id == TokenString) {
        value.setString(token.text);
    } else {
        // 1e5 is the integer 1 and 1.2.3 the float 1.2: the number reads as far as it can.
        VeskVariable digits;
        digits.setString(token.text);
        if (token.text.find('.') != std::string::npos) {
            value.setFloat(digits.getFloat());
        } else {
            value.setInteger(digits.getInteger());
        }
    }
    VeskSyntaxNode* node = makeConstant(owner, value);
    node->line = token.line;
    popToken();
    return node;
}

// A unary operator becomes an operation with a constant 0 on its left, bound to the one operand or
// parenthesised group that follows it: -x is 0 - x, NOT x is 0 NOT x, a stray * x is 0 * x.
void VeskScript::applyPendingUnary(std::vector<std::string>& operatorStack,
                                   std::vector<VeskSyntaxNode*>& operands, int& pendingUnary,
                                   VeskSyntaxNode* owner, int line) {
    for (; pendingUnary >= 1 && !operatorStack.empty(); --pendingUnary) {
        // An empty group such as -() leaves the operator nothing to take.
        if (operands.empty()) {
            throw VeskSyntaxException("Syntax error: missing operand for", operatorStack.back(), line);
        }
        VeskVariable zero;
        zero.setInteger(0);
        VeskSyntaxNode* operand = operands.back();
        operands.back() = makeConstant(owner, zero);
        operands.push_back(operand);
        reduceTop(operatorStack, operands, line);
    }
}

void VeskScript::reduceTop(std::vector<std::string>& operatorStack, std::vector<VeskSyntaxNode*>& operands,
                           int line) {
    VeskSyntaxNode* operation = buildOperation(operatorStack.back(), operands, line);
    operands.push_back(operation);
    operatorStack.pop_back();
}

VeskSyntaxNode* VeskScript::buildOperation(const std::string& op, std::vector<VeskSyntaxNode*>& operands,
                                           int line) {
    if (operands.size() < 2) {
        throw VeskSyntaxException("Syntax error: missing operand for", op, line);
    }
    VeskSyntaxNode* right = operands.back();
    operands.pop_back();
    VeskSyntaxNode* left = operands.back();
    operands.pop_back();
    const VeskOperatorRow* row = findOperatorRow(op.c_str());
    if (!row) {
        throw VeskSyntaxException("Internal error: failed to determine the operator", op, line);
    }
    VeskSyntaxNode* operation = makeOperation(right, row->id, left, right);
    operation->line = line;
    if (left->kind != NodeConstant || right->kind != NodeConstant) {
        return operation;
    }
    // Two constants fold into one now, by the very rules the operation follows at run time: that is
    // what lets CONST values, CASE values and negative steps be expressions.
    VeskVariable value;
    try {
        value = evaluate(operation);
    } catch (const VeskRuntimeException& e) {
        throw VeskSyntaxException(e.error, op, line);
    }
    operation->kind = NodeConstant;
    operation->variable = newVariable();
    *operation->variable = value;
    operation->parent = right->parent;
    operation->left = nullptr;
    operation->right = nullptr;
    remove(left);
    remove(right);
    return operation;
}

int VeskScript::getOperatorPriority(const std::string& op) {
    const VeskOperatorRow* row = findOperatorRow(op.c_str());
    return row ? row->priority : kNotAnOperator;
}

VeskSyntaxNode* VeskScript::makeOperation(VeskSyntaxNode* parent, int op, VeskSyntaxNode* left,
                                          VeskSyntaxNode* right) {
    VeskSyntaxNode* operation = newNode(parent);
    operation->kind = NodeOperation;
    operation->line = parent ? parent->line : 0;
    operation->op = op;
    operation->left = left;
    operation->right = right;
    operation->hasCall = left->hasCall || right->hasCall;
    operation->leafOperands = left->isLeaf() && right->isLeaf();
    for (const VeskOperatorRow& row : opPriority) {
        if (row.id == op) {
            operation->text = row.text;
            break;
        }
    }
    return operation;
}

VeskSyntaxNode* VeskScript::makeConstant(VeskSyntaxNode* parent, const VeskVariable& value) {
    VeskSyntaxNode* constant = newNode(parent);
    constant->kind = NodeConstant;
    constant->line = parent ? parent->line : 0;
    constant->variable = newVariable();
    *constant->variable = value;
    return constant;
}

VeskSyntaxNode* VeskScript::makeVariableReference(VeskSyntaxNode* parent, const std::string& name) {
    VeskSyntaxNode* reference = newNode(parent);
    reference->kind = NodeVariable;
    reference->line = parent->line;
    reference->text = name;
    bindName(reference, false);
    return reference;
}

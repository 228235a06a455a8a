// Expression evaluation and the rules of every operator. The left operand's type picks the
// arithmetic: 1 + 2.7 is the integer 3, 2.7 + 1 the float 3.7, "a" + 1 the string "a1".

#include <cstdint>
#include <limits>
#include <optional>

#include "script/VeskScript.h"

void throwArithmeticFault(const VeskSyntaxNode* operation, const char* error) {
    const VeskSyntaxNode* function = operation->function;
    throw VeskRuntimeException(error, operation->text, function ? function->text : "", operation->line);
}

namespace {

// Comparisons of floats yield the float 1.0 or 0.0.
bool floatOperation(int op, float left, float right, float& result) {
    switch (op) {
        case OperatorGreater:
            result = left > right ? 1.0f : 0.0f;
            return true;
        case OperatorGreaterEqual:
            result = left >= right ? 1.0f : 0.0f;
            return true;
        case OperatorLess:
            result = left < right ? 1.0f : 0.0f;
            return true;
        case OperatorLessEqual:
            result = left <= right ? 1.0f : 0.0f;
            return true;
        case OperatorMultiply:
            result = left * right;
            return true;
        case OperatorDivide:
            result = left / right;
            return true;
        case OperatorAdd:
            result = left + right;
            return true;
        case OperatorSubtract:
            result = left - right;
            return true;
        default:
            return false;
    }
}

// applyOperator's rules for two numbers. False where the result would be undefined.
inline bool numberOperation(const VeskSyntaxNode* operation, const VeskNumber& left, const VeskNumber& right,
                            VeskNumber& result) {
    result.isFloat = false;
    if (!left.isFloat && !right.isFloat) {
        return integerOperation(operation, left.integer, right.integer, result.integer);
    }
    switch (operation->op) {
        case OperatorOr:
        case OperatorAnd:
        case OperatorXor:
        case OperatorNot:
        case OperatorMod:
        case OperatorEqual:
        case OperatorNotEqual:
            return integerOperation(operation, left.asInteger(), right.asInteger(), result.integer);
        default:
            break;
    }
    if (!left.isFloat) {
        return integerOperation(operation, left.integer, right.asInteger(), result.integer);
    }
    result.isFloat = true;
    return floatOperation(operation->op, left.real, right.asFloat(), result.real);
}

const std::string& textOf(const VeskVariable& value, std::string& buffer) {
    if (value.type == VeskVariable::TypeString) {
        return value.stringValue();
    }
    buffer = value.toText();
    return buffer;
}

void concatenate(const VeskSyntaxNode* operation, const VeskVariable& left, const VeskVariable& right,
                 VeskVariable& result) {
    std::string buffer;
    const std::string& tail = textOf(right, buffer);
    if (left.stringValue().size() + tail.size() > VeskScript::kMaxStringLength) {
        throwArithmeticFault(operation, "String too long");
    }
    std::string text;
    text.reserve(left.stringValue().size() + tail.size());
    text += left.stringValue();
    text += tail;
    result.setString(std::move(text));
}

// The result stays undefined where an operator has no meaning for the left operand's type.
void applyOperator(const VeskSyntaxNode* operation, const VeskVariable& left, const VeskVariable& right,
                   VeskVariable& result) {
    const int op = operation->op;
    std::int32_t integer = 0;
    switch (op) {
        case OperatorOr:
        case OperatorAnd:
        case OperatorXor:
        case OperatorNot:
        case OperatorMod:
            integerOperation(operation, left.getInteger(), right.getInteger(), integer);
            result.setInteger(integer);
            return;
        case OperatorEqual:
        case OperatorNotEqual:
            result.setInteger(left.equals(right) == (op == OperatorEqual) ? 1 : 0);
            return;
        default:
            break;
    }
    switch (left.type) {
        case VeskVariable::TypeString:
            if (op == OperatorAdd) {
                concatenate(operation, left, right, result);
                return;
            }
            [[fallthrough]];
        case VeskVariable::TypeInteger:
            if (integerOperation(operation, left.getInteger(), right.getInteger(), integer)) {
                result.setInteger(integer);
            }
            return;
        case VeskVariable::TypeFloat: {
            float value;
            if (floatOperation(op, left.getFloat(), right.getFloat(), value)) {
                result.setFloat(value);
            }
            return;
        }
        default:
            return;
    }
}

}  // namespace

VeskVariable VeskScript::evaluate(VeskSyntaxNode* expression) {
    VeskVariable value;
    const VeskVariable& result = evaluateOperand(expression, value, true);
    if (&result != &value) {
        value = result;
    }
    return value;
}

// Variables and constants are read in place, without a copy; anything else is computed into
// `scratch`, a fresh value the caller owns.
const VeskVariable& VeskScript::evaluateOperand(VeskSyntaxNode* node, VeskVariable& scratch,
                                                bool tryNumbers) {
    if (!node) {
        return scratch;  // an absent operand is undefined
    }
    switch (node->kind) {
        case NodeVariable:
        case NodeConstant:
            return leafValue(node);
        case NodeOperation:
            evaluateOperation(node, scratch, tryNumbers);
            return scratch;
        case NodeCall:
            callInto(node, scratch);
            return scratch;
        default:
            throw VeskRuntimeException("evaluate noneval sentence", node->text, node->text, node->line);
    }
}

// `tryNumbers` is false once the number path has failed for an enclosing tree without calls: its
// subtrees need not be tried again.
void VeskScript::evaluateOperation(VeskSyntaxNode* operation, VeskVariable& result, bool tryNumbers) {
    checkStack(operation);
    VeskNumber number;
    if (tryNumbers) {
        if (numberPath(operation, number)) {
            number.storeInto(result);
            return;
        }
        // A tree with a call may still hold subtrees of numbers without one.
        tryNumbers = operation->hasCall;
    }
    std::optional<VeskVariable> leftScratch;
    const VeskVariable* left = &operandValue(operation->left, leftScratch, tryNumbers);
    // The right operand may call a function that changes the left variable or moves the stack.
    if (operation->right && operation->right->hasCall && !leftScratch) {
        left = &leftScratch.emplace(*left);
    }
    std::optional<VeskVariable> rightScratch;
    const VeskVariable& right = operandValue(operation->right, rightScratch, tryNumbers);
    applyOperator(operation, *left, right, result);
}

// Leaves are read in place; only other operands need a value of their own, made in `scratch`.
const VeskVariable& VeskScript::operandValue(VeskSyntaxNode* node, std::optional<VeskVariable>& scratch,
                                             bool tryNumbers) {
    if (node && node->isLeaf()) {
        return leafValue(node);
    }
    if (node && node->kind == NodeCall) {
        callInto(node, scratch.emplace());
        return *scratch;
    }
    return evaluateOperand(node, scratch.emplace(), tryNumbers);
}

// The commonest case, a tree of operations over integer variables and constants.
bool VeskScript::tryIntegerExpression(VeskSyntaxNode* node, std::int32_t& value) {
    if (node->kind != NodeOperation) {
        return node->isLeaf() && tryIntegerOperand(node, value);
    }
    checkStack(node);
    std::int32_t left;
    std::int32_t right;
    return tryIntegerOperand(node->left, left) && tryIntegerOperand(node->right, right) &&
           integerOperation(node, left, right, value);
}

// The common case without a single VeskVariable temporary: a tree of operations over numeric
// variables and constants. Reads only, so a false result (some value is no number, or the result
// would be undefined) leaves nothing to undo.
bool VeskScript::tryNumberExpression(VeskSyntaxNode* node, VeskNumber& value) {
    switch (node->kind) {
        case NodeVariable:
        case NodeConstant:
            return value.read(leafValue(node));
        case NodeOperation: {
            checkStack(node);
            VeskNumber left;
            VeskNumber right;
            return tryNumberOperand(node->left, left) && tryNumberOperand(node->right, right) &&
                   numberOperation(node, left, right, value);
        }
        default:
            return false;
    }
}

// Out of line: floats and mixed operands are the rarer case of two leaves.
bool VeskScript::mixedNumberLeaves(const VeskSyntaxNode* operation, const VeskVariable& left,
                                   const VeskVariable& right, VeskNumber& value) {
    VeskNumber leftNumber;
    VeskNumber rightNumber;
    return leftNumber.read(left) && rightNumber.read(right) &&
           numberOperation(operation, leftNumber, rightNumber, value);
}

bool VeskScript::conditionHolds(VeskSyntaxNode* expression) {
    return holds(expression);
}

// A condition that the number path cannot decide.
bool VeskScript::conditionHoldsGenerally(VeskSyntaxNode* expression) {
    // A CASE arm's test, or any = and <> of two variables or constants, straight from storage.
    const int op = expression->op;
    if (kFastPaths && expression->kind == NodeOperation && (op == OperatorEqual || op == OperatorNotEqual) &&
        expression->left->isLeaf() && expression->right->isLeaf()) {
        return leafValue(expression->left).equals(leafValue(expression->right)) == (op == OperatorEqual);
    }
    VeskVariable scratch;
    return evaluateOperand(expression, scratch, false).getInteger() != 0;
}

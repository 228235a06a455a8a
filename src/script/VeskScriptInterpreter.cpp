// The interpreter: function calls, statements and the host-function interface.

#include <cassert>
#include <cstdio>

#include "script/VeskDepthGuard.h"
#include "script/VeskScript.h"

namespace {

// Machine stack the interpreter may use below its outermost call: most of the 8 MiB that the main
// thread and a thread with default attributes get, with room left for the deepest single script
// level between two checks.
const std::uintptr_t kStackBudget = 5 * 1024 * 1024;

}  // namespace

bool VeskScript::run(std::string name) {
    toUpperString(name);
    try {
        invokeFunction(name, 0);
    } catch (const VeskRuntimeException& e) {
        auto defined = definingFiles.find(e.function);
        recordError(
            {e.error, e.detail, e.function, defined == definingFiles.end() ? "" : defined->second, e.line});
        return false;
    }
    return true;
}

VeskVariable VeskScript::invokeFunction(std::string name, int argumentCount) {
    // Before the lookup: once stopped, even a name the script lacks is no error.
    checkStop();
    VeskSyntaxNode* function = findFunction(name);
    if (!function) {
        throw VeskRuntimeException("Function not found", name, name, 0);
    }
    VeskVariable result;
    invoke(function, argumentCount, result);
    return result;
}

// The caller has pushed the arguments and pops them again; `result` is a fresh value. Like
// pushArguments and pushValue, this is on the path of every call and is inlined into its callers.
__attribute__((always_inline)) inline void VeskScript::invoke(VeskSyntaxNode* function, int argumentCount,
                                                              VeskVariable& result) {
    checkStop();
    if (function->kind == NodeExternal) {
        function->hostFunction(runtimeStack, result, argumentCount);
    } else {
        runFunction(function, argumentCount, result);
    }
}

// A script function's frame is the top localCount entries of the stack while its body runs.
void VeskScript::runFunction(VeskSyntaxNode* function, int argumentCount, VeskVariable& result) {
    if (function->kind != NodeFunction) {
        throwCallFault("Not a valid function", function);
    }
    // The bound is the whole frame, not the parameters: surplus arguments land in the return
    // variable and the first locals.
    if (argumentCount > function->localCount) {
        throwCallFault("Too many parameters", function);
    }
    assert(argumentCount >= 0 && static_cast<std::size_t>(argumentCount) <= runtimeStack.size());

    // Restores the caller's view however the call ends. A runtime error leaves the pushed values on
    // the stack, below any later frame, where nothing addresses them.
    struct CallerState {
        VeskScript& script;
        std::size_t frameBase;
        std::uintptr_t stackLimit;
        ~CallerState() {
            script.frameBase = frameBase;
            script.stackLimit = stackLimit;
        }
    } caller{*this, frameBase, stackLimit};
    auto frameAddress = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    if (callDepth == 0) {
        stackLimit = frameAddress > kStackBudget ? frameAddress - kStackBudget : 0;
#ifdef VESK_INSTRUCTION_BUDGET
        instructionsLeft = VESK_INSTRUCTION_BUDGET;
#endif
    }
    VeskDepthGuard depth(callDepth);
    const std::size_t pushed = static_cast<std::size_t>(function->localCount - argumentCount);
    if (callDepth > kMaxCallDepth || frameAddress < stackLimit ||
        runtimeStack.size() + pushed > kMaxStackValues) {
        throwCallFault("Stack overflow", function);
    }

    for (std::size_t i = 0; i < pushed; ++i) {
        runtimeStack.emplace_back();
    }
    frameBase = runtimeStack.size() - static_cast<std::size_t>(function->localCount);
    for (VeskSyntaxNode* statement : function->statements) {
        if (interpret(statement) == CompletionLeaveFunction) {
            break;
        }
    }
    // A function's own name is its return variable. A placeholder that was never defined has none.
    VeskVariable* returned =
        function->variable ? runtimeVariable(function) : getRuntimeVar(function, function->text);
    // A return variable in the frame's own part of the stack is about to go: its value can move.
    if (function->frameSlot >= argumentCount) {
        result = std::move(*returned);
    } else {
        result = *returned;
    }
    runtimeStack.resize(runtimeStack.size() - pushed);
}

// All arguments are evaluated before any is pushed, so that a call inside an argument runs against
// the stack as the caller left it. Without such a call after the first argument nothing can tell
// the difference, and the fast path pushes each value straight onto the stack.
__attribute__((always_inline)) inline void VeskScript::pushArguments(VeskSyntaxNode* callNode) {
    std::vector<VeskSyntaxNode*>& arguments = callNode->arguments;
    bool laterCall = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        laterCall = laterCall || arguments[i]->hasCall;
    }
    if (kFastPaths && !laterCall) {
        for (VeskSyntaxNode* argument : arguments) {
            pushValue(argument);
        }
        return;
    }
    std::vector<VeskVariable> values;
    values.reserve(arguments.size());
    for (VeskSyntaxNode* argument : arguments) {
        values.push_back(evaluate(argument));
    }
    for (VeskVariable& value : values) {
        runtimeStack.push_back(std::move(value));
    }
}

__attribute__((always_inline)) inline void VeskScript::pushValue(VeskSyntaxNode* expression) {
    if (expression->isLeaf()) {
        runtimeStack.push_back(leafValue(expression));
        return;
    }
    VeskNumber number;
    if (numberPath(expression, number)) {
        number.storeInto(runtimeStack.emplace_back());
        return;
    }
    runtimeStack.push_back(evaluate(expression));
}

VeskVariable VeskScript::call(VeskSyntaxNode* callNode) {
    VeskVariable result;
    callInto(callNode, result);
    return result;
}

// call, with the value built straight into a fresh `result` the caller owns.
void VeskScript::callInto(VeskSyntaxNode* callNode, VeskVariable& result) {
    pushArguments(callNode);
    const int count = static_cast<int>(callNode->arguments.size());
    invoke(callNode->expr, count, result);
    runtimeStack.resize(runtimeStack.size() - static_cast<std::size_t>(count));
}

VeskCompletion VeskScript::interpret(VeskSyntaxNode* statement) {
    countInstruction();
    switch (statement->kind) {
        case NodeFunction:
        case NodeVariable:
            return CompletionNormal;
        case NodeAssign:
            assign(statement);
            return CompletionNormal;
        case NodeIf:
            if (conditionHolds(statement->expr)) {
                return interpretBlock(statement->body);
            }
            return statement->elseBody ? interpretBlock(statement->elseBody) : CompletionNormal;
        case NodeLoop:
            return interpretLoop(statement);
        case NodeBlock:
            return interpretBlock(statement);
        case NodeCall: {
            VeskVariable ignored;
            callInto(statement, ignored);
            return CompletionNormal;
        }
        case NodeOperation:
            traceOperation(statement);
            return CompletionNormal;
        case NodeExit:
            switch (statement->op) {
                case TokenFunction:
                    return CompletionLeaveFunction;
                case TokenFor:
                case TokenDo:
                    return CompletionLeaveLoop;
                case TokenSelect:
                    return CompletionLeaveSelect;
                default:
                    return CompletionNormal;
            }
        case NodeSelect:
            return interpretSelect(statement);
        default:
            throwUnknownSyntax(statement);
    }
}

// A fault about a call names the function as detail and as the function, with line 0.
void VeskScript::throwCallFault(const char* error, VeskSyntaxNode* function) {
    throw VeskRuntimeException(error, function->text, function->text, 0);
}

void VeskScript::throwStop() {
    throw VeskStopException();
}

// An operation standing as a statement is traced, not evaluated.
void VeskScript::traceOperation(VeskSyntaxNode* operation) {
    std::fputs(("run eval " + operation->text + "\n").c_str(), stdout);
}

void VeskScript::throwUnknownSyntax(VeskSyntaxNode* statement) {
    throw VeskRuntimeException("Unknown syntax", statement->text, statement->text, statement->line);
}

// The first statement that does not complete normally ends the block.
VeskCompletion VeskScript::interpretBlock(VeskSyntaxNode* block) {
    for (VeskSyntaxNode* statement : block->statements) {
        VeskCompletion code = interpret(statement);
        if (code != CompletionNormal) {
            return code;
        }
    }
    return CompletionNormal;
}

// The condition is tested before every pass; a loop with `body` repeats while it holds, one with
// `elseBody` until it holds.
VeskCompletion VeskScript::interpretLoop(VeskSyntaxNode* loop) {
    VeskSyntaxNode* block = loop->body ? loop->body : loop->elseBody;
    if (!block) {
        return CompletionNormal;
    }
    if (loop->op == TokenFor) {
        return interpretFor(loop);
    }
    const bool repeatWhileTrue = loop->body != nullptr;
    VeskCompletion code = CompletionNormal;
    for (;;) {
        countInstruction();
        if (holds(loop->expr) != repeatWhileTrue) {
            break;
        }
        checkStop();
        code = interpretBlock(block);
        if (code >= CompletionLeaveLoop) {
            break;
        }
    }
    return code == CompletionLeaveLoop ? CompletionNormal : code;
}

// The general loop above, for the shape FOR builds: the condition compares the counter with the
// limit, and the block ends with the increment. The assignments, the increment among them, run
// here without a statement's dispatch; their values take the number path like any other's.
VeskCompletion VeskScript::interpretFor(VeskSyntaxNode* loop) {
    std::vector<VeskSyntaxNode*>& statements = loop->body->statements;
    VeskSyntaxNode* increment = statements.back();
    const std::size_t bodyLength = statements.size() - 1;
    VeskCompletion code = CompletionNormal;
    for (;;) {
        countInstruction();
        if (!holds(loop->expr)) {
            break;
        }
        checkStop();
        code = CompletionNormal;
        for (std::size_t i = 0; i < bodyLength && code == CompletionNormal; ++i) {
            VeskSyntaxNode* statement = statements[i];
            if (statement->kind == NodeAssign) {
                countInstruction();
                assign(statement);
            } else {
                code = interpret(statement);
            }
        }
        if (code == CompletionNormal) {
            countInstruction();
            assign(increment);
        }
        if (code >= CompletionLeaveLoop) {
            break;
        }
    }
    return code == CompletionLeaveLoop ? CompletionNormal : code;
}

// The arms run in order until one returns a code; the implicit EXIT at the end of each arm's block
// makes a matching arm the last. A selector without calls gives the same value for every comparison,
// so it is evaluated once and compared with each arm's constants directly.
VeskCompletion VeskScript::interpretSelect(VeskSyntaxNode* select) {
    VeskCompletion code = CompletionNormal;
    if (kFastPaths && select->expr && !select->expr->hasCall) {
        VeskVariable scratch;
        const VeskVariable& selector = evaluateOperand(select->expr, scratch, true);
        for (VeskSyntaxNode* arm : select->statements) {
            if (caseMatches(arm->expr, selector)) {
                code = interpretBlock(arm->body);
                break;
            }
        }
    } else {
        for (VeskSyntaxNode* arm : select->statements) {
            if ((code = interpret(arm)) != CompletionNormal) {
                break;
            }
        }
    }
    return code == CompletionLeaveSelect ? CompletionNormal : code;
}

// An arm's test is selector = constant, or an OR of such tests.
bool VeskScript::caseMatches(VeskSyntaxNode* test, const VeskVariable& selector) {
    if (test->op == OperatorOr) {
        return caseMatches(test->left, selector) || caseMatches(test->right, selector);
    }
    return selector.equals(*test->right->variable);
}

// assign's general path: a leaf is copied whole, its flags included; anything else the number path
// does not take is evaluated the general way.
void VeskScript::assignGenerally(VeskSyntaxNode* statement) {
    VeskSyntaxNode* expression = statement->expr;
    if (expression->isLeaf()) {
        VeskVariable scratch;
        const VeskVariable& value = evaluateOperand(expression, scratch, false);
        *runtimeVariable(statement) = value;
        return;
    }
    // The target is looked up only after the value: a call in the expression may move the stack.
    if (expression->kind == NodeCall) {
        VeskVariable value;
        callInto(expression, value);
        *runtimeVariable(statement) = std::move(value);
        return;
    }
    VeskVariable value;
    evaluateOperand(expression, value, false);
    *runtimeVariable(statement) = std::move(value);
}

VeskVariable* VeskScript::getRuntimeVar(VeskSyntaxNode* node, const std::string& name) {
    VeskSyntaxNode* function = node->function;
    if (function) {
        auto local = function->locals.find(name);
        if (local != function->locals.end()) {
            return &runtimeStack[frameBase + local->second->slot];
        }
    }
    if (VeskVariable* global = findGlobal(name)) {
        return global;
    }
    // Deliberately the line of the function's definition, not of the statement.
    throw VeskRuntimeException("variable not found", name, function ? function->text : "",
                               function ? function->line : 0);
}

void VeskScript::countInstruction() {
#ifdef VESK_INSTRUCTION_BUDGET
    if (--instructionsLeft < 0) {
        throw VeskRuntimeException("Instruction budget exhausted", "", "", 0);
    }
#endif
}

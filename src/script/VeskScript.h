#pragma once

#include <atomic>
#include <cassert>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "script/VeskError.h"
#include "script/VeskNumber.h"
#include "script/VeskRuntimeException.h"
#include "script/VeskStopException.h"
#include "script/VeskSyntaxException.h"
#include "script/VeskSyntaxNode.h"
#include "script/VeskTables.h"
#include "script/VeskToken.h"
#include "script/VeskVariable.h"

// How a statement ended, as interpret tells the statements around it. The codes grow with how far
// the exit reaches: a loop stops for CompletionLeaveLoop and anything beyond it.
enum VeskCompletion {
    CompletionNormal = 0,
    CompletionLeaveSelect = 1,
    CompletionLeaveLoop = 2,
    CompletionLeaveFunction = 5,
};

// The Vesk language engine: lexer, statement and expression parsers building one syntax tree per
// function, and the interpreter that walks those trees over one runtime stack. Faults are thrown
// inside as VeskSyntaxException or VeskRuntimeException and become a false result and the last
// error at the edge (load, parse, run, addFunction). A stop the host asked for is no fault: it
// leaves run and invokeFunction as a VeskStopException. One thread at a time may use an engine;
// only requestStop may be called from another.
//
// The definitions are spread by stage: VeskScriptLexer.cpp, VeskScriptParser.cpp,
// VeskScriptStatements.cpp, VeskScriptExpression.cpp, VeskScriptInterpreter.cpp and
// VeskScriptEvaluator.cpp.
class VeskScript {
  public:
    using HostFunction = VeskHostFunction;

    // Script calls nested deeper than this fail with "Stack overflow". A script level costs a few
    // kilobytes of machine stack in a sanitizer build; this depth fits a thread with the default
    // 8 MiB stack in every build.
    static const int kMaxCallDepth = 1000;
    // A call that would take the runtime stack past this many values fails with "Stack overflow"
    // too: deep recursion through a function with thousands of locals stays within memory.
    static const std::size_t kMaxStackValues = 1 << 20;
    // Blocks and call arguments nested deeper than this fail to parse with "Nesting too deep".
    static const int kMaxNesting = 200;
    // A concatenation longer than this fails with "String too long".
#ifdef VESK_INSTRUCTION_BUDGET
    static const std::size_t kMaxStringLength = 4 * 1024;  // keeps every fuzz input's run short
#else
    static const std::size_t kMaxStringLength = 16 * 1024 * 1024;
#endif

    VeskScript();
    ~VeskScript();
    VeskScript(const VeskScript&) = delete;
    VeskScript& operator=(const VeskScript&) = delete;

    // Lexer
    bool load(std::string fileName);
    // A script file's text as load reads it: up to its first NUL. False when it cannot be read.
    static bool readText(const std::string& fileName, std::string& text);
    bool parse(std::string text);
    // Appends the tokens of `text` to the current queue; false (and the last error) when the text
    // ends inside a string. parse scans into a queue of its own.
    bool scan(const std::string& text);
    void addToken(int line, std::string word);
    VeskToken& getToken();
    void popToken();
    void pushToken(VeskToken token);
    static void toUpperString(std::string& text);

    // Statement parser
    bool parseSyntax();
    void parseDIM(VeskSyntaxNode* owner);
    void parseCONST(VeskSyntaxNode* owner);
    void parseIMPORT();
    // The file an IMPORT names: every "." a "/", lower case, ".fb" appended.
    static std::string importPath(const std::string& name);
    void parseFUNCTION();
    void parseBody(VeskSyntaxNode* block);
    void parseCALL(VeskSyntaxNode* call);
    void endLine();
    VeskVariable* getVariable(VeskSyntaxNode* owner, const std::string& name, bool create);

    // Expression parser
    VeskSyntaxNode* parseExpression(VeskSyntaxNode* owner);
    VeskSyntaxNode* buildOperation(const std::string& op, std::vector<VeskSyntaxNode*>& operands, int line);
    // The priority of an operator word, lower binding tighter; kNotAnOperator for any other word.
    static int getOperatorPriority(const std::string& op);
    static const int kNotAnOperator = -1;

    // Interpreter
    // Whether the interpreter takes its fast paths: plain 32-bit arithmetic for a tree of integers,
    // and shortcuts for comparisons, SELECT and arguments. Each gives what the general rule gives;
    // a build with VESK_GENERAL_PATH_ONLY takes none, so that the language cases hold both ways of
    // running a script to the same output.
#ifdef VESK_GENERAL_PATH_ONLY
    static constexpr bool kFastPaths = false;
#else
    static constexpr bool kFastPaths = true;
#endif
    bool run(std::string name);
    VeskVariable invokeFunction(std::string name, int argumentCount);
    VeskVariable call(VeskSyntaxNode* callNode);
    VeskCompletion interpret(VeskSyntaxNode* statement);
    VeskVariable evaluate(VeskSyntaxNode* expression);
    VeskVariable* getRuntimeVar(VeskSyntaxNode* node, const std::string& name);
    std::vector<VeskVariable>& getRuntimeStack();
    bool addFunction(std::string name, HostFunction function);
    bool invokeExternal(std::string name, int argumentCount);
    void remove(VeskSyntaxNode* node);

    // Asks a running script to end, from any thread: at its next loop pass or function call (a
    // host function's included) it unwinds with VeskStopException, which leaves run and
    // invokeFunction and sets no last error. The request stays: every later run or
    // invokeFunction ends the same way before any function is called.
    void requestStop() {
        stopRequested.store(true, std::memory_order_relaxed);
    }
    bool isStopRequested() const {
        return stopRequested.load(std::memory_order_relaxed);
    }

    // Errors
    // The line that gives an error text no line part.
    static const int kNoLine = -1;
    // Records an error of the file being loaded, if any.
    void setLastError(const std::string& error, const std::string& detail, int line);
    std::string getLastError() const;
    // The parts the last error is made of, with the file it lies in: for a syntax error the file
    // being read (an imported file's own, however deep the import), for a runtime error the file
    // that defines the function it names.
    const VeskError& getLastErrorParts() const {
        return lastErrorParts;
    }

    // The function table's and the global table's entry for an upper-case name, or null.
    VeskSyntaxNode* findFunction(const std::string& name) const;
    VeskVariable* findGlobal(const std::string& name) const;

  private:
    VeskSyntaxNode* newNode(VeskSyntaxNode* parent);
    VeskVariable* newVariable();
    void deleteNode(VeskSyntaxNode* node);
    void deleteVariable(VeskVariable* variable);

    void recordError(VeskError parts);
    // The file being loaded; empty outside load.
    std::string currentFile() const {
        return loading.empty() ? "" : loading.back();
    }

    // Parser helpers
    VeskSyntaxNode* newStatement(VeskSyntaxNode* block, const VeskToken& token);
    VeskSyntaxNode* parseStatement(VeskSyntaxNode* block, VeskSyntaxNode* statement);
    VeskSyntaxNode* parseNameStatement(VeskSyntaxNode* block, VeskSyntaxNode* statement);
    void parseIF(VeskSyntaxNode* statement);
    void parseFOR(VeskSyntaxNode* block, VeskSyntaxNode* statement);
    void parseWHILE(VeskSyntaxNode* block, VeskSyntaxNode* statement);
    void parseDO(VeskSyntaxNode* block, VeskSyntaxNode* statement);
    void parseSELECT(VeskSyntaxNode* block, VeskSyntaxNode* statement);
    void parseEXIT(VeskSyntaxNode* statement);
    VeskSyntaxNode* parseBlock(VeskSyntaxNode* parent);
    int readLoopMode(const char* error);
    VeskSyntaxNode* makeCaseTest(VeskSyntaxNode* arm, VeskSyntaxNode* selector, VeskSyntaxNode* select);
    VeskVariable* newLocal(VeskSyntaxNode* owner, const std::string& name, int line);
    void bindName(VeskSyntaxNode* node, bool create);
    void bindVariable(VeskSyntaxNode* node, VeskVariable* variable);
    void rebindShadowedGlobal(VeskSyntaxNode* function, const std::string& name);
    VeskSyntaxNode* makeVariableReference(VeskSyntaxNode* parent, const std::string& name);
    VeskSyntaxNode* makeOperation(VeskSyntaxNode* parent, int op, VeskSyntaxNode* left,
                                  VeskSyntaxNode* right);
    VeskSyntaxNode* makeConstant(VeskSyntaxNode* parent, const VeskVariable& value);
    void applyPendingUnary(std::vector<std::string>& operatorStack, std::vector<VeskSyntaxNode*>& operands,
                           int& pendingUnary, VeskSyntaxNode* owner, int line);
    void reduceTop(std::vector<std::string>& operatorStack, std::vector<VeskSyntaxNode*>& operands, int line);
    VeskSyntaxNode* makeOperand(const VeskToken& token, VeskSyntaxNode* owner);

    // Interpreter helpers
    void invoke(VeskSyntaxNode* function, int argumentCount, VeskVariable& result);
    void callInto(VeskSyntaxNode* callNode, VeskVariable& result);
    void runFunction(VeskSyntaxNode* function, int argumentCount, VeskVariable& result);
    // The storage a variable reference, an assignment or a function's return variable names in
    // the running frame.
    VeskVariable* runtimeVariable(VeskSyntaxNode* node) {
        // A sign test rather than a comparison with kGlobalSlot: knowing the slot is not negative,
        // the compiler indexes without widening it, some 5 % of a tight loop's time.
        static_assert(VeskSyntaxNode::kGlobalSlot < 0, "a frame slot is never negative");
        if (node->frameSlot >= 0) {
            return &runtimeStack[frameBase + static_cast<std::size_t>(node->frameSlot)];
        }
        return node->variable;
    }
    bool conditionHolds(VeskSyntaxNode* expression);
    bool conditionHoldsGenerally(VeskSyntaxNode* expression);
    // The rare cases of interpret, kept out of it so that it stays small: it runs every statement.
    __attribute__((noinline, cold)) void traceOperation(VeskSyntaxNode* operation);
    [[noreturn]] __attribute__((noinline, cold)) void throwCallFault(const char* error,
                                                                     VeskSyntaxNode* function);
    [[noreturn]] __attribute__((noinline, cold)) void throwUnknownSyntax(VeskSyntaxNode* statement);
    VeskCompletion interpretBlock(VeskSyntaxNode* block);
    VeskCompletion interpretLoop(VeskSyntaxNode* loop);
    VeskCompletion interpretFor(VeskSyntaxNode* loop);
    VeskCompletion interpretSelect(VeskSyntaxNode* select);
    bool caseMatches(VeskSyntaxNode* test, const VeskVariable& selector);
    // The whole value replaces the variable's, its type and flags included.
    void assign(VeskSyntaxNode* statement) {
        VeskNumber number;
        if (!statement->expr->isLeaf() && numberPath(statement->expr, number)) {
            number.storeInto(*runtimeVariable(statement));
            return;
        }
        assignGenerally(statement);
    }
    void assignGenerally(VeskSyntaxNode* statement);
    void pushArguments(VeskSyntaxNode* callNode);
    void pushValue(VeskSyntaxNode* expression);
    // Throws "Stack overflow" when the machine stack has grown past the interpreter's budget.
    void checkStack(VeskSyntaxNode* node) {
        if (reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < stackLimit) {
            throwCallFault("Stack overflow", node->function ? node->function : node);
        }
    }
    const VeskVariable& evaluateOperand(VeskSyntaxNode* node, VeskVariable& scratch, bool tryNumbers);
    void evaluateOperation(VeskSyntaxNode* operation, VeskVariable& result, bool tryNumbers);
    const VeskVariable& operandValue(VeskSyntaxNode* node, std::optional<VeskVariable>& scratch,
                                     bool tryNumbers);
    bool tryNumberExpression(VeskSyntaxNode* node, VeskNumber& value);
    bool tryIntegerExpression(VeskSyntaxNode* node, std::int32_t& value);
    bool tryIntegerOperand(VeskSyntaxNode* node, std::int32_t& value) {
        if (!node->isLeaf()) {
            return tryIntegerExpression(node, value);
        }
        const VeskVariable& leaf = leafValue(node);
        value = leaf.integerValue;
        return leaf.type == VeskVariable::TypeInteger;
    }
    // The one decision for the number path: an expression without calls whose leaves all hold
    // integers or floats is computed into `value`, as the general rule would compute it. False
    // leaves the expression to the general path.
    bool numberPath(VeskSyntaxNode* expression, VeskNumber& value) {
        if (!kFastPaths || expression->hasCall) {
            return false;
        }
        if (expression->leafOperands) {
            return numberLeaves(expression, value);
        }
        // Integers first: most trees hold nothing else, and their walk is the shorter one.
        value.isFloat = false;
        if (tryIntegerExpression(expression, value.integer)) {
            return true;
        }
        return tryNumberExpression(expression, value);
    }
    // The number path of an operation on two leaves, which a loop's test and step and most
    // assignments are: each leaf is read once, whatever kinds of number they hold.
    bool numberLeaves(VeskSyntaxNode* operation, VeskNumber& value) {
        const VeskVariable& left = leafValue(operation->left);
        const VeskVariable& right = leafValue(operation->right);
        if (left.type == VeskVariable::TypeInteger && right.type == VeskVariable::TypeInteger) {
            value.isFloat = false;
            return integerOperation(operation, left.integerValue, right.integerValue, value.integer);
        }
        return mixedNumberLeaves(operation, left, right, value);
    }
    bool mixedNumberLeaves(const VeskSyntaxNode* operation, const VeskVariable& left,
                           const VeskVariable& right, VeskNumber& value);
    // Whether a condition holds, its number path inline: for the loops, whose test runs on every
    // pass. conditionHolds is the same, out of line.
    bool holds(VeskSyntaxNode* condition) {
        VeskNumber number;
        if (numberPath(condition, number)) {
            return number.isTrue();
        }
        return conditionHoldsGenerally(condition);
    }
    // A variable's storage or a constant's value, read in place: a constant's frameSlot is
    // kGlobalSlot, so its `variable` is found as a global's is, without a test of the kind.
    const VeskVariable& leafValue(VeskSyntaxNode* leaf) {
        assert(leaf->isLeaf() &&
               (leaf->kind == NodeVariable || leaf->frameSlot == VeskSyntaxNode::kGlobalSlot));
        return *runtimeVariable(leaf);
    }
    // tryNumberExpression with the leaves, which most operands are, read without a call.
    bool tryNumberOperand(VeskSyntaxNode* node, VeskNumber& value) {
        if (!node->isLeaf()) {
            return tryNumberExpression(node, value);
        }
        return value.read(leafValue(node));
    }
    void countInstruction();
    // A relaxed load per loop pass or call: the benchmarks cannot tell it from nothing.
    void checkStop() {
        if (stopRequested.load(std::memory_order_relaxed)) {
            throwStop();
        }
    }
    [[noreturn]] __attribute__((noinline, cold)) static void throwStop();

    std::deque<VeskToken> tokens;
    std::map<std::string, VeskSyntaxNode*> functions;
    std::map<std::string, VeskVariable*> globals;
    std::vector<VeskVariable> runtimeStack;
    std::string lastError;
    VeskError lastErrorParts;
    // The file each script function was defined in, for runtime errors.
    std::map<std::string, std::string> definingFiles;
    // A fault inside an imported file, kept while the failed IMPORT unwinds to its file's parse.
    std::optional<VeskError> importFault;

    // Every node and variable the engine made, freed on destruction whatever state a failed parse
    // left the trees in.
    std::unordered_map<VeskSyntaxNode*, std::unique_ptr<VeskSyntaxNode>> nodes;
    std::unordered_map<VeskVariable*, std::unique_ptr<VeskVariable>> variables;

    // Files being loaded, outermost first, to refuse an IMPORT cycle.
    std::vector<std::string> loading;
    int nesting = 0;

    // The running function's frame starts at this index of runtimeStack.
    std::size_t frameBase = 0;
    int callDepth = 0;
    // Lowest machine-stack address the interpreter may reach; 0 while no script runs.
    std::uintptr_t stackLimit = 0;
    std::atomic<bool> stopRequested{false};
#ifdef VESK_INSTRUCTION_BUDGET
    long instructionsLeft = 0;
#endif
};

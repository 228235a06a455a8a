#pragma once

#include <map>
#include <string>
#include <vector>

#include "script/VeskTables.h"
#include "script/VeskVariable.h"

// A host function: receives the runtime stack (its arguments are the top `argumentCount` entries),
// the result to fill in, and the argument count. It must not push or pop.
using VeskHostFunction = void (*)(std::vector<VeskVariable>& stack, VeskVariable& result, int argumentCount);

// One node of a syntax tree. Nodes never own their children or variables: the VeskScript that made
// them frees them. Copies are shallow and share children (SELECT repeats its selector that way).
class VeskSyntaxNode {
  public:
    explicit VeskSyntaxNode(VeskSyntaxNode* parent);
    VeskSyntaxNode(VeskSyntaxNode* parent, VeskSyntaxNode* left, VeskSyntaxNode* right, int line,
                   std::string text);
    VeskSyntaxNode(const VeskSyntaxNode&) = default;
    VeskSyntaxNode& operator=(const VeskSyntaxNode&) = default;

    // The `line` of a function that has been called but not yet defined.
    static const int kPlaceholderLine = -1;
    // The `frameSlot` of a node whose `variable` is the global itself.
    static const int kGlobalSlot = -1;

    bool isLeaf() const { return kind == NodeVariable || kind == NodeConstant; }

    int line = 0;
    int kind = 0;
    std::string text;
    VeskSyntaxNode* left = nullptr;
    VeskSyntaxNode* right = nullptr;
    VeskSyntaxNode* parent = nullptr;
    VeskSyntaxNode* function = nullptr;
    int op = 0;
    VeskSyntaxNode* expr = nullptr;
    VeskSyntaxNode* body = nullptr;
    VeskSyntaxNode* elseBody = nullptr;
    int localCount = 0;
    std::map<std::string, VeskVariable*> locals;
    std::vector<VeskSyntaxNode*> statements;
    std::vector<VeskSyntaxNode*> arguments;
    VeskVariable* variable = nullptr;
    VeskHostFunction hostFunction = nullptr;

    // Resolved at parse time so that the interpreter finds storage without a name lookup: for a
    // variable reference, an assignment and a function's return variable, the frame slot of a
    // local, or kGlobalSlot.
    int frameSlot = kGlobalSlot;
    // Whether evaluating this expression may call a function. Such a call can change variables and
    // grow the runtime stack, so values read before it must be copied.
    bool hasCall = false;
    // For an operation: whether both operands are variables or constants.
    bool leafOperands = false;
};

// The statement parser, top level: declarations, imports, function definitions, calls and name
// resolution. The statement forms inside function bodies are in VeskScriptStatements.cpp.

#include <algorithm>
#include <cctype>
#include <limits>

#include "script/VeskScript.h"

namespace {

bool isOperator(const VeskToken& token, const char* text) {
    return token.id == TokenOperator && token.text == text;
}

}  // namespace

bool VeskScript::parseSyntax() {
    try {
        while (!tokens.empty()) {
            VeskToken& token = getToken();
            switch (token.id) {
                case TokenEndOfLine:
                    popToken();
                    break;
                case TokenDim:
                    popToken();
                    parseDIM(nullptr);
                    break;
                case TokenConst:
                    popToken();
                    parseCONST(nullptr);
                    break;
                case TokenImport:
                    popToken();
                    parseIMPORT();
                    break;
                case TokenFunction:
                    popToken();
                    parseFUNCTION();
                    break;
                default:
                    setLastError("unknown word", token.text, token.line);
                    return false;
            }
        }
    } catch (const VeskSyntaxException& e) {
        setLastError(e.error, e.detail, e.line);
        if (importFault) {
            lastErrorParts = std::move(*importFault);
            importFault.reset();
        }
        return false;
    }
    // Every function called so far, in this file or an earlier one, must be defined by now.
    for (const auto& [name, function] : functions) {
        if (function && function->line == VeskSyntaxNode::kPlaceholderLine) {
            setLastError("Function not implemented", name, kNoLine);
            return false;
        }
    }
    return true;
}

// DIM name {, name} EOL
void VeskScript::parseDIM(VeskSyntaxNode* owner) {
    // Inside an IF, loop or CASE block the owner is that block, whose own table no lookup consults:
    // such a DIM only guards against repeating a name in the block.
    std::map<std::string, VeskVariable*>& table = owner ? owner->locals : globals;
    bool expectName = true;
    for (;;) {
        VeskToken& token = getToken();
        if (token.id == TokenEndOfLine) {
            return;
        }
        if (expectName && token.id == TokenName) {
            if (table.count(token.text)) {
                throw VeskSyntaxException("Redim variable", token.text, token.line);
            }
            if (owner) {
                newLocal(owner, token.text, token.line);
                if (owner->kind == NodeFunction && globals.count(token.text)) {
                    rebindShadowedGlobal(owner, token.text);
                }
            } else {
                VeskVariable* global = newVariable();
                global->isGlobal = 1;
                globals[token.text] = global;
            }
            expectName = false;
        } else if (token.id == TokenComma) {
            expectName = true;
        } else {
            throw VeskSyntaxException("Syntax error", token.text, token.line);
        }
        popToken();
    }
}

// CONST name = constant-expression {, name = constant-expression} EOL
void VeskScript::parseCONST(VeskSyntaxNode* owner) {
    bool expectName = true;
    for (;;) {
        VeskToken token = getToken();
        if (expectName && token.id == TokenName) {
            if (globals.count(token.text)) {
                throw VeskSyntaxException("Redefine variable", token.text, token.line);
            }
            popToken();
            VeskToken equals = getToken();
            if (!isOperator(equals, "=")) {
                throw VeskSyntaxException("Syntax error, missing '='", equals.text, equals.line);
            }
            popToken();
            VeskSyntaxNode* value = parseExpression(owner);
            if (value->kind != NodeConstant) {
                throw VeskSyntaxException("Not a proper constant value", equals.text, equals.line);
            }
            VeskVariable* constant = newVariable();
            *constant = *value->variable;
            constant->isConstant = 1;
            constant->isGlobal = 1;
            remove(value);
            globals[token.text] = constant;
            expectName = false;
        } else if (token.id == TokenComma) {
            popToken();
            expectName = true;
        } else if (token.id == TokenEndOfLine) {
            popToken();
            return;
        } else {
            throw VeskSyntaxException("Syntax error", token.text, token.line);
        }
    }
}

// IMPORT path EOL, where lib.util names the file lib/util.fb
void VeskScript::parseIMPORT() {
    VeskToken token = getToken();
    popToken();
    const std::string path = importPath(token.text);
    if (std::find(loading.begin(), loading.end(), path) != loading.end()) {
        throw VeskSyntaxException("Circular import", path, token.line);
    }
    if (!load(path)) {
        // A fault with a line lies inside the imported file and keeps its place there; one
        // without (the file cannot be opened) is placed at this IMPORT.
        if (lastErrorParts.line != kNoLine) {
            importFault = lastErrorParts;
        }
        throw VeskSyntaxException("Failed to include the file " + path, lastError, token.line);
    }
}

std::string VeskScript::importPath(const std::string& name) {
    std::string path;
    for (char c : name) {
        path += c == '.' ? '/' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return path + ".fb";
}

// FUNCTION name [( [parameters] )] EOL body END FUNCTION EOL
void VeskScript::parseFUNCTION() {
    VeskToken name = getToken();
    if (name.id != TokenName) {
        throw VeskSyntaxException("Syntax error", name.text, name.line);
    }
    VeskSyntaxNode* function = findFunction(name.text);
    if (function && function->line != VeskSyntaxNode::kPlaceholderLine) {
        throw VeskSyntaxException("Function redefined", name.text, name.line);
    }
    // A placeholder left by an earlier call is taken over, so that call reaches this definition.
    if (!function) {
        function = newNode(nullptr);
    }
    function->line = name.line;
    function->kind = NodeFunction;
    function->function = function;
    function->text = name.text;
    functions[name.text] = function;
    definingFiles[name.text] = currentFile();
    popToken();

    if (getToken().id != TokenEndOfLine) {
        VeskToken open = getToken();
        if (!isOperator(open, "(")) {
            throw VeskSyntaxException("Syntax error, missing (", open.text, open.line);
        }
        popToken();
        // Commas between parameters are optional.
        for (VeskToken* token = &getToken(); !isOperator(*token, ")"); token = &getToken()) {
            if (token->id == TokenName) {
                if (function->locals.count(token->text)) {
                    throw VeskSyntaxException("Parameter redefined", token->text, token->line);
                }
                newLocal(function, token->text, token->line);
            } else if (token->id != TokenComma) {
                throw VeskSyntaxException("Syntax error, unknown word", token->text, token->line);
            }
            popToken();
        }
        popToken();
    }
    endLine();
    // The return variable: a local named like the function, in the slot after the parameters.
    bindName(function, true);
    parseBody(function);
    VeskToken& closing = getToken();
    if (closing.id != TokenFunction) {
        throw VeskSyntaxException("Missing END FUNCTION", closing.text, closing.line);
    }
    popToken();
    endLine();
}

// name [(] [expression {, expression}] [)]
void VeskScript::parseCALL(VeskSyntaxNode* call) {
    VeskSyntaxNode* callee = findFunction(call->text);
    if (!callee) {
        callee = newNode(nullptr);
        callee->kind = NodeFunction;
        callee->line = VeskSyntaxNode::kPlaceholderLine;
        callee->text = call->text;
        callee->function = callee;
        functions[call->text] = callee;
    }
    call->expr = callee;
    call->hasCall = true;

    bool parenthesised = false;
    if (isOperator(getToken(), "(")) {
        popToken();
        parenthesised = true;
        if (isOperator(getToken(), ")")) {
            popToken();
            return;
        }
    } else if (getToken().id == TokenEndOfLine) {
        return;
    }
    for (;;) {
        call->arguments.push_back(parseExpression(call));
        VeskToken& next = getToken();
        if (parenthesised && isOperator(next, ")")) {
            popToken();
            return;
        }
        if (!parenthesised && next.id == TokenEndOfLine) {
            return;
        }
        if (next.id != TokenComma) {
            throw VeskSyntaxException("Missing ',' before", next.text, next.line);
        }
        popToken();
    }
}

void VeskScript::endLine() {
    VeskToken& token = getToken();
    if (token.id != TokenEndOfLine) {
        throw VeskSyntaxException("Need a new line at", token.text, token.line);
    }
    popToken();
}

VeskVariable* VeskScript::getVariable(VeskSyntaxNode* owner, const std::string& name, bool create) {
    VeskSyntaxNode* function = owner ? owner->function : nullptr;
    if (function) {
        auto local = function->locals.find(name);
        if (local != function->locals.end()) {
            return local->second;
        }
    }
    if (VeskVariable* global = findGlobal(name)) {
        return global;
    }
    if (!function || !create) {
        return nullptr;
    }
    // Assigning to the function's own name sets its return variable; any other function's name
    // is taken.
    if (findFunction(name) && name != function->text) {
        throw VeskSyntaxException("Name conflicts against a function name.", name, 0);
    }
    return newLocal(function, name, 0);
}

VeskVariable* VeskScript::newLocal(VeskSyntaxNode* owner, const std::string& name, int line) {
    if (owner->localCount > std::numeric_limits<std::uint16_t>::max()) {
        throw VeskSyntaxException("Too many variables", name, line);
    }
    VeskVariable* local = newVariable();
    local->slot = static_cast<std::uint16_t>(owner->localCount++);
    owner->locals[name] = local;
    return local;
}

void VeskScript::bindName(VeskSyntaxNode* node, bool create) {
    bindVariable(node, getVariable(node, node->text, create));
}

void VeskScript::bindVariable(VeskSyntaxNode* node, VeskVariable* variable) {
    node->variable = variable;
    node->frameSlot = VeskSyntaxNode::kGlobalSlot;
    VeskSyntaxNode* function = node->function;
    if (function && variable) {
        auto local = function->locals.find(node->text);
        if (local != function->locals.end() && local->second == variable) {
            node->frameSlot = variable->slot;
        }
    }
}

// A DIM at a function's top level may declare a local after the function has already used a
// global of that name; from then on the name means the local everywhere in the function, the
// earlier uses included, because the lookup at run time finds the local first.
void VeskScript::rebindShadowedGlobal(VeskSyntaxNode* function, const std::string& name) {
    for (const auto& entry : nodes) {
        VeskSyntaxNode* node = entry.first;
        bool namesStorage =
            node->kind == NodeVariable || node->kind == NodeAssign || node->kind == NodeFunction;
        if (namesStorage && node->function == function && node->text == name && node->variable) {
            bindVariable(node, function->locals[name]);
        }
    }
}

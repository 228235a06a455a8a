// The statement parser inside function bodies: statement lists and every statement form.

#include "script/VeskDepthGuard.h"
#include "script/VeskScript.h"

namespace {

bool isOperator(const VeskToken& token, const char* text) {
    return token.id == TokenOperator && token.text == text;
}

void expect(const VeskToken& token, int id, const char* error) {
    if (token.id != id) {
        throw VeskSyntaxException(error, token.text, token.line);
    }
}

}  // namespace

// statements until a word that no statement starts with; END is consumed, the word after it is the
// caller's to check
void VeskScript::parseBody(VeskSyntaxNode* block) {
    VeskDepthGuard depth(nesting);
    if (nesting > kMaxNesting) {
        VeskToken& token = getToken();
        throw VeskSyntaxException("Nesting too deep", token.text, token.line);
    }
    VeskSyntaxNode* previous = nullptr;
    for (;;) {
        VeskToken& token = getToken();
        switch (token.id) {
            case TokenEndOfLine:
                popToken();
                continue;
            case TokenEnd:
                popToken();
                return;
            case TokenDim:
                popToken();
                parseDIM(block);
                endLine();
                continue;
            case TokenName:
            case TokenLet:
            case TokenIf:
            case TokenFor:
            case TokenWhile:
            case TokenDo:
            case TokenSelect:
            case TokenExit:
                break;
            default:
                // ELSE, NEXT, WEND, LOOP and CASE close their blocks this way; so does anything
                // else that starts no statement, CALL and CONST among them.
                return;
        }
        VeskSyntaxNode* statement = newStatement(block, token);
        statement->left = previous;
        statement = parseStatement(block, statement);
        if (previous) {
            previous->right = statement;
        }
        block->statements.push_back(statement);
        previous = statement;
        endLine();
    }
}

VeskSyntaxNode* VeskScript::newStatement(VeskSyntaxNode* block, const VeskToken& token) {
    VeskSyntaxNode* statement = newNode(block);
    statement->line = token.line;
    statement->text = token.text;
    return statement;
}

VeskSyntaxNode* VeskScript::parseStatement(VeskSyntaxNode* block, VeskSyntaxNode* statement) {
    switch (getToken().id) {
        case TokenLet:
            popToken();
            expect(getToken(), TokenName, "Syntax error, not a valid name");
            return parseNameStatement(block, statement);
        case TokenIf:
            parseIF(statement);
            break;
        case TokenFor:
            parseFOR(block, statement);
            break;
        case TokenWhile:
            parseWHILE(block, statement);
            break;
        case TokenDo:
            parseDO(block, statement);
            break;
        case TokenSelect:
            parseSELECT(block, statement);
            break;
        case TokenExit:
            parseEXIT(statement);
            break;
        default:
            return parseNameStatement(block, statement);
    }
    return statement;
}

// simple {, simple} EOL where simple is: name = expression, or name [arguments]
// Returns the last statement of the line; the ones before it are already in the block.
VeskSyntaxNode* VeskScript::parseNameStatement(VeskSyntaxNode* block, VeskSyntaxNode* statement) {
    for (;;) {
        statement->text = getToken().text;
        popToken();
        VeskToken& next = getToken();
        if (isOperator(next, "=")) {
            statement->kind = NodeAssign;
            bindName(statement, true);
            if (statement->variable->isConstant) {
                throw VeskSyntaxException("Error, trying to assign a new value to a constant", "=",
                                          next.line);
            }
            popToken();
            statement->expr = parseExpression(statement);
        } else {
            statement->kind = NodeCall;
            parseCALL(statement);
        }
        if (getToken().id == TokenEndOfLine) {
            return statement;
        }
        // The statements after a comma carry line 0.
        block->statements.push_back(statement);
        statement = newNode(block);
        expect(getToken(), TokenComma, "Error, should be endline or comma");
        popToken();
        expect(getToken(), TokenName, "Error, should be symbol after comma");
    }
}

// IF condition THEN EOL block [ELSE EOL block] END IF
void VeskScript::parseIF(VeskSyntaxNode* statement) {
    statement->kind = NodeIf;
    popToken();
    statement->expr = parseExpression(statement);
    expect(getToken(), TokenThen, "Syntax error, missing THEN");
    popToken();
    endLine();
    statement->body = parseBlock(statement);
    if (getToken().id == TokenElse) {
        popToken();
        endLine();
        statement->elseBody = parseBlock(statement);
    }
    expect(getToken(), TokenIf, "Syntax error, missing END IF");
    popToken();
}

// FOR name = expression TO expression [STEP expression] EOL block NEXT
void VeskScript::parseFOR(VeskSyntaxNode* block, VeskSyntaxNode* statement) {
    statement->kind = NodeLoop;
    statement->op = TokenFor;  // the interpreter's counting fast path relies on the shape built here
    popToken();
    statement->text = getToken().text;
    const std::string& name = statement->text;
    popToken();
    VeskToken& equals = getToken();
    if (!isOperator(equals, "=")) {
        throw VeskSyntaxException("Syntax error, missing '='", equals.text, equals.line);
    }
    popToken();

    VeskSyntaxNode* start = newNode(block);
    start->kind = NodeAssign;
    start->line = statement->line;
    start->text = name;
    bindName(start, true);
    start->expr = parseExpression(statement);
    block->statements.push_back(start);

    expect(getToken(), TokenTo, "Syntax error, missing 'TO'");
    popToken();
    VeskSyntaxNode* limit = parseExpression(statement);
    VeskSyntaxNode* step;
    if (getToken().id == TokenStep) {
        popToken();
        step = parseExpression(statement);
    } else {
        VeskVariable one;
        one.setInteger(1);
        step = makeConstant(statement, one);
    }
    VeskSyntaxNode* increment = newNode(block);
    increment->kind = NodeAssign;
    increment->line = statement->line;
    increment->text = name;
    bindName(increment, true);
    increment->expr = makeOperation(increment, OperatorAdd, makeVariableReference(increment, name), step);

    endLine();
    statement->body = parseBlock(block);
    expect(getToken(), TokenNext, "Syntax error, missing 'NEXT'");
    popToken();
    // NEXT stands alone on its line: a matching name is left for the end-of-line check to refuse.
    VeskToken& after = getToken();
    if (after.id == TokenName && after.text != name) {
        throw VeskSyntaxException("Syntax error, missing 'FOR' for NEXT", after.text, after.line);
    }
    statement->body->statements.push_back(increment);
    // Only a constant negative step counts down; a variable step, or one between -1 and 0, counts up.
    bool countsDown = step->kind == NodeConstant && step->variable->getInteger() < 0;
    statement->expr = makeOperation(statement, countsDown ? OperatorGreaterEqual : OperatorLessEqual,
                                    makeVariableReference(statement, name), limit);
}

// WHILE condition block WEND
void VeskScript::parseWHILE(VeskSyntaxNode* block, VeskSyntaxNode* statement) {
    statement->kind = NodeLoop;
    popToken();
    statement->expr = parseExpression(block);
    statement->body = parseBlock(block);
    expect(getToken(), TokenWend, "Syntax error, missing 'WEND' for 'WHILE'");
    popToken();
}

// DO [WHILE|UNTIL condition] EOL block LOOP [WHILE|UNTIL condition]
void VeskScript::parseDO(VeskSyntaxNode* block, VeskSyntaxNode* statement) {
    statement->kind = NodeLoop;
    popToken();
    int mode = readLoopMode("Syntax error, missing 'WHILE' or 'UNTIL' for 'DO'");
    if (mode != TokenEndOfLine) {
        statement->expr = parseExpression(statement);
        endLine();
    }
    VeskSyntaxNode* loopBlock = parseBlock(block);
    expect(getToken(), TokenLoop, "Syntax error, missing 'LOOP' for 'DO'");
    popToken();
    if (mode == TokenEndOfLine) {
        // A bare LOOP drops its line end and reads the condition from the next line.
        mode = readLoopMode("Syntax error, missing 'WHILE' or 'UNTIL' for 'LOOP'");
        statement->expr = parseExpression(statement);
    }
    if (mode == TokenUntil) {
        statement->elseBody = loopBlock;
    } else {
        statement->body = loopBlock;
    }
}

int VeskScript::readLoopMode(const char* error) {
    VeskToken& token = getToken();
    if (token.id != TokenUntil && token.id != TokenWhile && token.id != TokenEndOfLine) {
        throw VeskSyntaxException(error, token.text, token.line);
    }
    int mode = token.id;
    popToken();
    return mode;
}

// SELECT CASE expression EOL {CASE constant {, constant} EOL block} END SELECT
// Each arm is an IF on selector = value, with a copy of the selector that shares its children; the
// selector is evaluated again for every comparison.
void VeskScript::parseSELECT(VeskSyntaxNode* block, VeskSyntaxNode* statement) {
    statement->kind = NodeSelect;
    popToken();
    expect(getToken(), TokenCase, "Syntax error, missing 'CASE' for 'SELECT'");
    popToken();
    VeskSyntaxNode* selector = parseExpression(statement);
    endLine();
    for (;;) {
        if (getToken().id == TokenEnd) {
            popToken();
            expect(getToken(), TokenSelect, "Syntax error, missing 'SELECT' for 'END'");
            popToken();
            break;
        }
        expect(getToken(), TokenCase, "Syntax error, missing 'CASE'");
        popToken();
        VeskSyntaxNode* arm = newNode(block);
        arm->kind = NodeIf;
        arm->line = statement->line;
        arm->expr = makeCaseTest(arm, selector, statement);
        while (getToken().id == TokenComma) {
            popToken();
            arm->expr = makeOperation(arm, OperatorOr, arm->expr, makeCaseTest(arm, selector, statement));
        }
        endLine();
        arm->body = parseBlock(block);
        VeskSyntaxNode* leaveSelect = newNode(arm->body);
        leaveSelect->kind = NodeExit;
        leaveSelect->op = TokenSelect;
        arm->body->statements.push_back(leaveSelect);
        statement->statements.push_back(arm);
        if (getToken().id == TokenSelect) {
            popToken();
            break;
        }
    }
    // Kept for the interpreter, which evaluates a selector without calls only once.
    statement->expr = selector;
}

VeskSyntaxNode* VeskScript::makeCaseTest(VeskSyntaxNode* arm, VeskSyntaxNode* selector,
                                         VeskSyntaxNode* select) {
    VeskSyntaxNode* value = parseExpression(select);
    if (value->kind != NodeConstant) {
        throw VeskSyntaxException("Error: case value should be a constant", "", select->line);
    }
    VeskSyntaxNode* selectorCopy = newNode(nullptr);
    *selectorCopy = *selector;
    return makeOperation(arm, OperatorEqual, selectorCopy, value);
}

// EXIT FOR | EXIT FUNCTION | EXIT DO
void VeskScript::parseEXIT(VeskSyntaxNode* statement) {
    popToken();
    VeskToken& token = getToken();
    if (token.id != TokenFor && token.id != TokenFunction && token.id != TokenDo) {
        throw VeskSyntaxException("Syntax error, invalid procedure", token.text, token.line);
    }
    statement->kind = NodeExit;
    statement->op = token.id;
    popToken();
}

VeskSyntaxNode* VeskScript::parseBlock(VeskSyntaxNode* parent) {
    VeskSyntaxNode* block = newNode(parent);
    block->kind = NodeBlock;
    parseBody(block);
    return block;
}

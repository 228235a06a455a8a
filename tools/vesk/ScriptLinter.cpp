#include "ScriptLinter.h"

#include "OperatorChain.h"
#include "script/VeskScript.h"
#include "script/VeskTables.h"

namespace {

bool isOperatorToken(const VeskToken& token, const char* text) {
    return token.id == TokenOperator && token.text == text;
}

// An operator that may stand inside an expression: the symbols with a priority and the words
// AND, OR, XOR, NOT and MOD. Parentheses are read as groups, not through here.
bool isChainOperator(const VeskToken& token) {
    if (token.id >= TokenOr && token.id <= TokenMod) {
        return true;
    }
    return token.id == TokenOperator && token.text != "(" && token.text != ")" &&
           VeskScript::getOperatorPriority(token.text) > 0;
}

// Counts the groups and calls being read inside each other, so that absurd nesting is skipped
// rather than read with a machine stack that grows with it.
struct NestingLevel {
    explicit NestingLevel(int& nesting) : nesting(++nesting) {}
    ~NestingLevel() { --nesting; }
    int& nesting;
};

bool startsOperand(const VeskToken& token) {
    return token.id == TokenName || token.id == TokenString || token.id == TokenNumber ||
           isOperatorToken(token, "(");
}

int lineCount(const std::string& text) {
    int lines = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))) {
            ++lines;
        }
    }
    return lines;
}

}  // namespace

void ScriptLinter::warn(int line, const std::string& text) {
    warnings << currentFile << ':' << line << ": warning: " << text << '\n';
    ++warningCount;
}

void ScriptLinter::lint(const std::string& path) {
    if (!visited.insert(path).second) {
        return;
    }
    scripts.push_back(path);
    std::string text;
    if (!VeskScript::readText(path, text)) {
        return;
    }
    const std::string importer = currentFile;
    const int importerLoopDepth = loopDepth;
    currentFile = path;
    loopDepth = 0;
    if (!text.empty() && text.back() != '\n' && text.back() != '\r') {
        warn(lineCount(text), "the file does not end with a line end, so its last word is dropped");
    }
    VeskScript scanner;
    scanner.scan(text);
    Tokens line;
    try {
        for (;;) {
            VeskToken token = scanner.getToken();
            scanner.popToken();
            if (token.id == TokenEndOfLine) {
                lintLine(line);
                line.clear();
            } else {
                line.push_back(std::move(token));
            }
        }
    } catch (const VeskSyntaxException&) {
        // The queue is empty: what is left without a line end is no statement the engine reads.
    }
    currentFile = importer;
    loopDepth = importerLoopDepth;
}

void ScriptLinter::lintLine(const Tokens& line) {
    if (line.empty()) {
        return;
    }
    // The LOOP of a DO without condition takes the next line as its WHILE condition.
    if (conditionLineNext) {
        conditionLineNext = false;
        std::string text;
        readExpression(line, 0, text);
        return;
    }
    if (line[0].id == TokenDo) {
        bareDos.push_back(line.size() == 1);
    } else if (line[0].id == TokenLoop && !bareDos.empty()) {
        conditionLineNext = bareDos.back() && line.size() == 1;
        bareDos.pop_back();
    }
    switch (line[0].id) {
        case TokenImport:
            if (line.size() > 1) {
                lint(VeskScript::importPath(line[1].text));
            }
            return;
        case TokenFunction:
            noteFunction(line);
            return;
        case TokenEnd:
            if (line.size() > 1 && line[1].id == TokenFunction) {
                currentFunction.clear();
            }
            return;
        case TokenDim:
            return;
        case TokenExit:
            checkExit(line);
            return;
        case TokenFor:
        case TokenWhile:
        case TokenDo:
            ++loopDepth;
            break;
        case TokenNext:
        case TokenWend:
        case TokenLoop:
            loopDepth = loopDepth > 0 ? loopDepth - 1 : 0;
            break;
        default:
            break;
    }
    scanStatements(line);
}

void ScriptLinter::checkExit(const Tokens& line) {
    if (line.size() < 2) {
        return;
    }
    const VeskToken& what = line[1];
    if ((what.id == TokenFor || what.id == TokenDo) && loopDepth == 0) {
        warn(what.line, "EXIT " + what.text + " stands in no loop and does nothing");
    } else if (what.id == TokenWhile || what.id == TokenSelect) {
        warn(what.line, "there is no EXIT " + what.text +
                            " (the script does not load); EXIT DO or EXIT FOR " +
                            "leaves the innermost loop of any kind, a WHILE included");
    }
}

// The expressions of a line: after the keywords that introduce them, after "name =", as the
// arguments of calls, and between the keywords THEN, TO, STEP and the commas that end them.
void ScriptLinter::scanStatements(const Tokens& line) {
    std::size_t position = 0;
    bool statementStart = true;
    bool constant = false;
    while (position < line.size()) {
        const VeskToken& token = line[position];
        const bool hasNext = position + 1 < line.size();
        if (token.id == TokenLet || token.id == TokenFor || token.id == TokenConst) {
            constant = token.id == TokenConst;
            ++position;
            statementStart = true;
            continue;
        }
        if (statementStart && token.id == TokenName) {
            statementStart = false;
            if (hasNext && isOperatorToken(line[position + 1], "=")) {
                noteAssignment(line, position + 2, token.text, constant);
                position += 2;
                continue;
            }
            if (!hasNext || !isOperatorToken(line[position + 1], "(")) {
                std::string text;
                position = readArguments(line, position + 1, false, token, text);
                continue;
            }
        }
        statementStart = token.id == TokenComma;
        if (startsOperand(token) || isChainOperator(token)) {
            std::string text;
            position = readExpression(line, position, text);
        } else {
            ++position;
        }
    }
}

// One expression from `position`; its operators are checked and its text given back. Returns the
// position of the token that ends it.
std::size_t ScriptLinter::readExpression(const Tokens& line, std::size_t position, std::string& text) {
    std::vector<OperatorChain::Item> items;
    bool expectOperand = true;
    int firstLine = line[position].line;
    while (position < line.size()) {
        const VeskToken& token = line[position];
        if (isChainOperator(token)) {
            items.push_back({token.text, true});
            expectOperand = true;
            ++position;
        } else if (expectOperand && startsOperand(token)) {
            std::string operand;
            position = readOperand(line, position, operand);
            items.push_back({operand, false});
            expectOperand = false;
        } else {
            break;
        }
    }
    OperatorChain chain(std::move(items));
    const std::string warning = chain.warning();
    if (!warning.empty()) {
        warn(firstLine, warning);
    }
    text = chain.source();
    return position;
}

// A literal, a name, a call with its arguments in parentheses, or a parenthesised group.
std::size_t ScriptLinter::readOperand(const Tokens& line, std::size_t position, std::string& text) {
    const VeskToken& token = line[position];
    if (nesting >= VeskScript::kMaxNesting) {
        text = "...";
        return position + 1;
    }
    NestingLevel level(nesting);
    const bool opensParenthesis = position + 1 < line.size() && isOperatorToken(line[position + 1], "(");
    if (token.id == TokenName && opensParenthesis) {
        return readArguments(line, position + 2, true, token, text);
    }
    if (isOperatorToken(token, "(")) {
        std::string inner;
        position = position + 1 < line.size() ? readExpression(line, position + 1, inner) : position + 1;
        text = "(" + inner + ")";
        return position < line.size() && isOperatorToken(line[position], ")") ? position + 1 : position;
    }
    text = token.id == TokenString ? "\"" + token.text + "\"" : token.text;
    return position + 1;
}

// The arguments of a call of `name`: up to the closing parenthesis, or without parentheses up to
// the end of the line, separated by commas.
std::size_t ScriptLinter::readArguments(const Tokens& line, std::size_t position, bool parenthesised,
                                        const VeskToken& name, std::string& text) {
    std::vector<ArgumentTexts::Argument> values;
    std::string arguments;
    const bool empty = position >= line.size() || (parenthesised && isOperatorToken(line[position], ")"));
    while (!empty && position < line.size()) {
        const std::size_t start = position;
        std::string argument;
        if (startsOperand(line[position]) || isChainOperator(line[position])) {
            position = readExpression(line, position, argument);
        }
        const bool single =
            position == start + 1 && (line[start].id == TokenString || line[start].id == TokenName);
        values.push_back(single ? texts.argumentOf(line[start].id == TokenString, line[start].text)
                                : ArgumentTexts::Argument());
        arguments += (values.size() > 1 ? ", " : "") + argument;
        if (position >= line.size() || line[position].id != TokenComma) {
            break;
        }
        ++position;
    }
    if (parenthesised && position < line.size() && isOperatorToken(line[position], ")")) {
        ++position;
    }
    noteCall(name, std::move(values));
    text = name.text + "(" + arguments + ")";
    return position;
}

// FUNCTION name [( [parameters] )]
void ScriptLinter::noteFunction(const Tokens& line) {
    loopDepth = 0;
    bareDos.clear();
    currentFunction = line.size() > 1 ? line[1].text : "";
    std::vector<std::string> parameters;
    for (std::size_t i = 2; i < line.size(); ++i) {
        if (line[i].id == TokenName) {
            parameters.push_back(line[i].text);
        }
    }
    texts.defineFunction(currentFunction, std::move(parameters));
}

// name = value, where a value of one literal or text CONST is worth remembering.
void ScriptLinter::noteAssignment(const Tokens& line, std::size_t value, const std::string& name,
                                  bool constant) {
    const bool single =
        value + 1 == line.size() || (value + 1 < line.size() && line[value + 1].id == TokenComma);
    if (!single || value >= line.size()) {
        return;
    }
    const ArgumentTexts::Argument argument =
        texts.argumentOf(line[value].id == TokenString, line[value].text);
    if (!argument.text) {
        return;
    }
    if (constant) {
        texts.defineConstant(name, *argument.text);
    } else {
        texts.assign(currentFunction, name, *argument.text);
    }
}

void ScriptLinter::noteCall(const VeskToken& name, std::vector<ArgumentTexts::Argument> arguments) {
    const int given = static_cast<int>(arguments.size());
    texts.addCall({currentFile, name.line, name.text, currentFunction, std::move(arguments)});
    const HostFunctionSignature* function = findHostFunction(name.text);
    if (!function) {
        return;
    }
    const std::string reads = std::string(function->name) + " reads " + std::to_string(function->arity) +
                              (function->arity == 1 ? " argument" : " arguments") + " but is given " +
                              std::to_string(given);
    if (function->arity != HostFunctionSignature::kAnyCount && given < function->arity) {
        warn(name.line, reads + ": the game takes the missing ones from the calling function's values");
    } else if (function->arity != HostFunctionSignature::kAnyCount && given > function->arity) {
        warn(name.line, reads + ": the game reads only the last " +
                            (function->arity == 1 ? std::string("one") : std::to_string(function->arity)));
    }
    if (function->kinds[0] == ARGUMENT_COMMAND) {
        warn(name.line,
             "system runs a shell command on the player's machine; only trusted scripts should "
             "be played");
    }
}

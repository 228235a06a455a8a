#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "ArgumentTexts.h"
#include "script/VeskToken.h"
#include "scripting/HostFunctionTable.h"

// Reads a script and every file it imports the way the engine's lexer does and warns about what
// the language accepts but an author most likely did not mean: chains of operators that group
// otherwise than usual arithmetic, host calls with the wrong number of arguments, a last line
// without a line end, an EXIT that leaves nothing, and shell commands run through system.
// Warnings go out as "FILE:LINE: warning: TEXT". On the way it notes what the asset list needs:
// the files reached, and every call with the texts its arguments can hold.
class ScriptLinter {
  public:
    explicit ScriptLinter(std::ostream& warnings) : warnings(warnings) {}

    // Lints FILE, a path relative to the working directory as the game gives it, and through
    // IMPORT every file it reaches, each once.
    void lint(const std::string& path);

    int getWarningCount() const { return warningCount; }
    // Every script reached, the first one first, those that cannot be opened included.
    const std::vector<std::string>& getScripts() const { return scripts; }
    // Every call of a function, the host's and the script's, with what its arguments can hold.
    const ArgumentTexts& getTexts() const { return texts; }

  private:
    using Tokens = std::vector<VeskToken>;

    void lintLine(const Tokens& line);
    void checkExit(const Tokens& line);
    void scanStatements(const Tokens& line);
    std::size_t readExpression(const Tokens& line, std::size_t position, std::string& text);
    std::size_t readOperand(const Tokens& line, std::size_t position, std::string& text);
    std::size_t readArguments(const Tokens& line, std::size_t position, bool parenthesised,
                              const VeskToken& name, std::string& text);
    void noteFunction(const Tokens& line);
    void noteAssignment(const Tokens& line, std::size_t value, const std::string& name, bool constant);
    void noteCall(const VeskToken& name, std::vector<ArgumentTexts::Argument> arguments);
    void warn(int line, const std::string& text);

    std::ostream& warnings;
    int warningCount = 0;
    std::string currentFile;
    int loopDepth = 0;               // loops open around the current line of the current function
    int nesting = 0;                 // groups and calls being read
    std::vector<bool> bareDos;       // per DO open in the function: whether it has no condition
    bool conditionLineNext = false;  // the line before was the LOOP of a DO without condition
    std::vector<std::string> scripts;
    std::set<std::string> visited;
    std::string currentFunction;  // upper case; empty outside a function
    ArgumentTexts texts;
};

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The texts a call's argument can hold, as far as the script's text tells without running it: a
// string literal; a CONST holding one; a variable that its function assigns such texts; or a
// parameter of the calling function, whose own callers pass such texts. This is what lets the
// asset list follow loadMap(LevelMap) and addPlayer(1, Colour, Role, ...) inside a helper.
class ArgumentTexts {
  public:
    struct Argument {
        std::optional<std::string> text;  // known when the argument is a literal or a text CONST
        std::string name;                 // else the name standing alone as the argument, if any
    };

    struct Call {
        std::string file;
        int line = 0;
        std::string function;  // upper case
        std::string caller;    // the function the call stands in; empty at the top level
        std::vector<Argument> arguments;
    };

    void defineConstant(const std::string& name, const std::string& text) { constants[name] = text; }
    void assign(const std::string& function, const std::string& name, const std::string& text);
    void defineFunction(const std::string& name, std::vector<std::string> parameters);
    void addCall(Call call) { calls.push_back(std::move(call)); }

    // A one-token argument: a string's text, a text CONST's value, or else a name.
    Argument argumentOf(bool isString, const std::string& token) const;
    const std::vector<Call>& getCalls() const { return calls; }
    // Every text the call's argument `index` can hold; nothing (std::nullopt) among them stands
    // for a value the script's text does not tell.
    std::vector<std::optional<std::string>> possibleTexts(const Call& call, std::size_t index) const;

  private:
    static const int kMaxCallerDepth = 8;  // parameters followed through this many callers
    static const int kMaxSteps = 10000;    // arguments looked at for one question

    void collect(const Call& call, std::size_t index, int depth, int& stepsLeft,
                 std::vector<std::optional<std::string>>& texts) const;

    std::map<std::string, std::string> constants;
    std::map<std::pair<std::string, std::string>, std::vector<std::string>> assigned;
    std::map<std::string, std::vector<std::string>> parameters;
    std::vector<Call> calls;
};

#include "ArgumentTexts.h"

#include <algorithm>

void ArgumentTexts::assign(const std::string& function, const std::string& name, const std::string& text) {
    std::vector<std::string>& texts = assigned[{function, name}];
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) {
        texts.push_back(text);
    }
}

void ArgumentTexts::defineFunction(const std::string& name, std::vector<std::string> names) {
    parameters[name] = std::move(names);
}

ArgumentTexts::Argument ArgumentTexts::argumentOf(bool isString, const std::string& token) const {
    if (isString) {
        return {token, ""};
    }
    auto constant = constants.find(token);
    if (constant != constants.end()) {
        return {constant->second, ""};
    }
    return {std::nullopt, token};
}

std::vector<std::optional<std::string>> ArgumentTexts::possibleTexts(const Call& call,
                                                                     std::size_t index) const {
    std::vector<std::optional<std::string>> texts;
    int stepsLeft = kMaxSteps;
    collect(call, index, 0, stepsLeft, texts);
    return texts;
}

void ArgumentTexts::collect(const Call& call, std::size_t index, int depth, int& stepsLeft,
                            std::vector<std::optional<std::string>>& texts) const {
    if (index >= call.arguments.size() || --stepsLeft < 0) {
        texts.push_back(std::nullopt);
        return;
    }
    const Argument& argument = call.arguments[index];
    if (argument.text) {
        texts.push_back(argument.text);
        return;
    }
    auto own = parameters.find(call.caller);
    if (!argument.name.empty() && own != parameters.end() && depth < kMaxCallerDepth) {
        auto parameter = std::find(own->second.begin(), own->second.end(), argument.name);
        if (parameter != own->second.end()) {
            const std::size_t position = static_cast<std::size_t>(parameter - own->second.begin());
            const std::size_t before = texts.size();
            for (const Call& outer : calls) {
                if (outer.function == call.caller) {
                    collect(outer, position, depth + 1, stepsLeft, texts);
                }
            }
            if (texts.size() == before) {
                texts.push_back(std::nullopt);
            }
            return;
        }
    }
    auto values = assigned.find({call.caller, argument.name});
    if (values == assigned.end()) {
        texts.push_back(std::nullopt);
        return;
    }
    texts.insert(texts.end(), values->second.begin(), values->second.end());
}

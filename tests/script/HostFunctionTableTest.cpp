// The host-function table against the level authors' manual, whose table of host functions must
// list the same functions in the same order with the same number of arguments.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "scripting/HostFunctionTable.h"

namespace {

struct DocumentedFunction {
    std::string name;
    int arity;
};

// A cell of a Markdown table row, blanks and backticks trimmed.
std::string cell(const std::string& row, int index) {
    std::stringstream cells(row);
    std::string text;
    for (int i = 0; i <= index + 1; ++i) {
        std::getline(cells, text, '|');
    }
    std::string trimmed;
    for (char c : text) {
        if (c != '`') {
            trimmed += c;
        }
    }
    const auto first = trimmed.find_first_not_of(' ');
    return first == std::string::npos ? "" : trimmed.substr(first, trimmed.find_last_not_of(' ') - first + 1);
}

// "any number", "—" for none, else one argument per comma-separated item.
int arityOf(const std::string& arguments) {
    if (arguments == "any number") {
        return HostFunctionSignature::kAnyCount;
    }
    if (arguments == "—") {
        return 0;
    }
    int count = 1;
    for (char c : arguments) {
        count += c == ',' ? 1 : 0;
    }
    return count;
}

std::vector<DocumentedFunction> documentedFunctions() {
    std::ifstream manual(VESK_MANUAL);
    std::vector<DocumentedFunction> functions;
    std::string row;
    bool inTable = false;
    while (std::getline(manual, row)) {
        if (row.rfind("| function | arguments |", 0) == 0) {
            inTable = true;
            std::getline(manual, row);  // the rule under the header
        } else if (inTable && row.rfind("|", 0) == 0) {
            // A row may describe several functions alike: `playerX`, `playerY`.
            std::stringstream names(cell(row, 0));
            std::string name;
            while (std::getline(names >> std::ws, name, ',')) {
                functions.push_back({name, arityOf(cell(row, 1))});
            }
        } else {
            inTable = false;
        }
    }
    return functions;
}

TEST(HostFunctionTable, ManualListsEveryFunctionWithItsArgumentCount) {
    const std::vector<DocumentedFunction> documented = documentedFunctions();
    ASSERT_EQ(documented.size(), std::size(kHostFunctions));
    for (std::size_t i = 0; i < documented.size(); ++i) {
        EXPECT_EQ(documented[i].name, kHostFunctions[i].name) << "row " << i;
        EXPECT_EQ(documented[i].arity, kHostFunctions[i].arity) << kHostFunctions[i].name;
    }
}

}  // namespace

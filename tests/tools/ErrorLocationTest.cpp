#include "ErrorLocation.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace {

TEST(ErrorLocation, ScriptErrorsNameTheFileTheyAreIn) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"At line 3 : Redim variable : A", "main.fb:3: error: Redim variable : A"},
        {"Failed to open file. : main.fb", "main.fb: error: Failed to open file. : main.fb"},
        {"Function not implemented : F", "main.fb: error: Function not implemented : F"},
        {"At line 2 : Failed to include the file lib/a.fb : At line 5 : Redim variable : B",
         "lib/a.fb:5: error: Redim variable : B"},
        {"At line 2 : Failed to include the file lib/a.fb : At line 1 : Failed to include the file "
         "lib/b.fb : At line 9 : Syntax error : X",
         "lib/b.fb:9: error: Syntax error : X"},
        // An imported file without a line to point at: the IMPORT is the place.
        {"At line 4 : Failed to include the file lib/gone.fb : Failed to open file. : lib/gone.fb",
         "main.fb:4: error: Failed to include the file lib/gone.fb : Failed to open file. : lib/gone.fb"},
        {"At line 0 : Name conflicts against a function name. : T",
         "main.fb: error: Name conflicts against a function name. : T"},
    };
    for (const auto& [error, located] : cases) {
        EXPECT_EQ(locateScriptError("main.fb", error), located) << error;
    }
}

TEST(ErrorLocation, RuntimeErrorsNameTheFileDefiningTheFunction) {
    const std::string folder = ::testing::TempDir();
    const std::string main = folder + "/located_main.fb";
    const std::string library = folder + "/located_lib.fb";
    std::ostringstream ignored;
    ScriptLinter linter(ignored);
    {
        std::FILE* file = std::fopen(library.c_str(), "w");
        std::fputs("FUNCTION Helper\nEND FUNCTION\n", file);
        std::fclose(file);
    }
    {
        std::FILE* file = std::fopen(main.c_str(), "w");
        std::fprintf(file, "IMPORT \"%s\"\nFUNCTION Main\nEND FUNCTION\n",
                     library.substr(0, library.size() - 3).c_str());
        std::fclose(file);
    }
    linter.lint(main);
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"At line 2 : HELPER: Division by zero : /", library + ":2: error: HELPER: Division by zero : /"},
        {"At line 3 : MAIN: Division by zero : /", main + ":3: error: MAIN: Division by zero : /"},
        {"At line 0 : OTHER: Function not found : OTHER",
         main + ": error: OTHER: Function not found : OTHER"},
    };
    for (const auto& [error, located] : cases) {
        EXPECT_EQ(locateRuntimeError(linter, main, error), located) << error;
    }
}

}  // namespace

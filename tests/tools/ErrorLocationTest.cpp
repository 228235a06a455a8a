#include "ErrorLocation.h"

#include <gtest/gtest.h>

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

}  // namespace

#pragma once

#include <string>

namespace Grevan {

// A game event waiting for the script: the name of the script function to call and its three
// integer arguments. The text is carried but never handed to the script.
struct ScriptEvent {
    std::string name;
    std::string text;
    int arg1 = 0;
    int arg2 = 0;
    int arg3 = 0;
};

}  // namespace Grevan

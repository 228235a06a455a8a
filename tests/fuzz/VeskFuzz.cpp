// libFuzzer targets over the Vesk engine. vesk_fuzz_parse sends any text through the lexer and both
// parsers; vesk_fuzz_run (built with VESK_FUZZ_RUN) then runs text that parses from Main and sends
// it an event the way the game's script host sends "OnKill". No input may crash, hang or leak. The
// instruction budget of the fuzz build ends every run early; tests/fuzz/fuzz.sh closes standard
// output, where print writes.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    VeskScript script;
    script.addFunction("print", Grevan::print);
    script.addFunction("isNull", Grevan::isNull);
    if (!script.parse(std::string(reinterpret_cast<const char*>(data), size))) {
        return 0;
    }
#ifdef VESK_FUZZ_RUN
    script.run("Main");
    std::vector<VeskVariable>& stack = script.getRuntimeStack();
    for (int argument : {7, 100, 200}) {
        stack.emplace_back().setInteger(argument);
    }
    try {
        script.invokeFunction("ONKILL", 3);
    } catch (const VeskRuntimeException&) {
    }
    stack.resize(stack.size() - 3);
#endif
    return 0;
}

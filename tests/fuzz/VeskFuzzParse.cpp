// libFuzzer target: any text through the lexer and both parsers. No input may crash, hang or leak.

#include <cstddef>
#include <cstdint>
#include <string>

#include "script/VeskScript.h"
#include "scripting/BasicHostFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    VeskScript script;
    script.addFunction("isNull", Grevan::isNull);
    script.parse(std::string(reinterpret_cast<const char*>(data), size));
    script.getLastError();
    return 0;
}

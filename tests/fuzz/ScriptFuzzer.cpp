// Phone scripts of any bytes: nothing crashes, and a script that is refused names a line.
#include "hosts/script/ScriptParser.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        script::parseScript({reinterpret_cast<const char*>(data), size}, "fuzz.phone");
    } catch (const script::ScriptError& error) {
        if (error.line() < 0 || std::string_view(error.what()).empty())
            std::abort();
    }
    return 0;
}

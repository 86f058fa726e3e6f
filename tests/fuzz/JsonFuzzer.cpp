// JSON of any bytes: nothing crashes, and what is read keeps to the limits.
#include "platform/foundation/JsonCoding.h"

#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::size_t deepest = 20, mostValues = 1000;

/// Counts the values beneath and including this one; ends the program for one that lies too deep.
std::size_t count(const foundation::PropertyList& value, std::size_t depth) {
    if (depth > deepest)
        std::abort();
    std::size_t values = 1;
    if (const auto* array = value.array())
        for (const auto& item : *array)
            values += count(item, depth + 1);
    if (const auto* dictionary = value.dictionary())
        for (const auto& [key, item] : *dictionary)
            values += count(item, depth + 1);
    return values;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto value =
        foundation::decodeJson({data, size}, {.maximumDepth = deepest, .maximumValues = mostValues});
    if (value && count(*value, 0) > mostValues)
        std::abort();
    return 0;
}

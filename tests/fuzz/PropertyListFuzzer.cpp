// Property lists of any bytes: nothing crashes, and whatever is read can be written and read again.
#include "platform/foundation/PropertyListCoding.h"

#include <cstdlib>

namespace {

/// Touches every value, so that a reader's mistake shows.
std::size_t visit(const foundation::PropertyList& value) {
    std::size_t sum = value.boolValue() + static_cast<std::size_t>(value.floatValue() != 0) +
                      static_cast<std::size_t>(value.integerValue() != 0);
    if (const auto* array = value.array())
        for (const auto& item : *array)
            sum += visit(item);
    if (const auto* dictionary = value.dictionary())
        for (const auto& [key, item] : *dictionary)
            sum += key.size() + visit(item);
    return sum;
}

std::optional<foundation::PropertyList> decode(std::string_view text) {
    return foundation::decodePropertyList({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto value = foundation::decodePropertyList({data, size});
    if (!value)
        return 0;
    visit(*value);
    const auto again = decode(foundation::encodePropertyList(*value));
    if (!again) {
        // A list of nothing is written as nothing, which is none.
        if (!value->isNil())
            std::abort();
        return 0;
    }
    // The first writing may have left out characters that XML cannot hold; from then on nothing changes.
    const std::string text = foundation::encodePropertyList(*again);
    const auto third = decode(text);
    if (!third || foundation::encodePropertyList(*third) != text)
        std::abort();
    return 0;
}

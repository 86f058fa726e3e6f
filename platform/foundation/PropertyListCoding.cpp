#include "platform/foundation/PropertyListCoding.h"

#include "platform/foundation/BinaryPropertyListCheck.h"
#include "platform/foundation/PropertyListWriter.h"
#include "platform/foundation/Utf8Validation.h"
#include "platform/foundation/XmlPropertyListCheck.h"

#include <cstdlib>
#include <limits>
#include <memory>

#include <glib.h>
#include <locale.h>
#include <plist/plist.h>

namespace foundation {

namespace {

constexpr std::string_view binaryMagic = "bplist00";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Keeps the calling thread in the "C" locale: the reader takes real numbers as the locale has them, and a
/// host's may write its decimals with a comma.
class NeutralLocale {
public:
    NeutralLocale() : previous_(uselocale(neutral())) {}
    NeutralLocale(const NeutralLocale&) = delete;
    NeutralLocale& operator=(const NeutralLocale&) = delete;
    ~NeutralLocale() { uselocale(previous_); }

private:
    static locale_t neutral() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }
    locale_t previous_;
};

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
struct FreeTree {
    void operator()(void* tree) const { plist_free(tree); }
};
using Tree = std::unique_ptr<void, FreeTree>;

/// Texts are UTF-8 everywhere, also where a file has something else.
std::string validText(const char* text, std::size_t length) {
    if (isValidUtf8({text, length}))
        return {text, length};
    const std::unique_ptr<char, void (*)(void*)> made(g_utf8_make_valid(text, static_cast<gssize>(length)),
                                                      g_free);
    return made.get();
}

PropertyList valueOf(plist_t node);

PropertyList integerOf(plist_t node) {
    std::uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    const auto value = static_cast<std::int64_t>(bits);
    if (value >= 0)
        return value;
    // The reader hands out a negative number and one above the type's range alike, but tells them apart
    // itself.
    const Tree negative(plist_new_uint(bits));
    if (plist_compare_node_value(node, negative.get()))
        return value;
    return std::numeric_limits<std::int64_t>::max();
}

PropertyList dateOf(plist_t node) {
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    // The reader has 32 bits for the seconds: what lies before 1932 or after 2069 is no sound date to it, and
    // leaves no sound fraction either.
    constexpr std::int32_t microsecondsPerSecond = 1'000'000;
    if (std::abs(std::int64_t{microseconds}) >= microsecondsPerSecond)
        microseconds = 0;
    return PropertyList::Date{seconds + static_cast<double>(microseconds) / microsecondsPerSecond};
}

PropertyList dataOf(plist_t node) {
    std::uint64_t length = 0;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(plist_get_data_ptr(node, &length));
    return bytes ? PropertyList::Data(bytes, bytes + length) : PropertyList::Data();
}

PropertyList textOf(plist_t node) {
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return text ? validText(text, length) : std::string();
}

PropertyList arrayOf(plist_t node) {
    PropertyList::Array items;
    items.reserve(plist_array_get_size(node));
    void* memory = nullptr;
    plist_array_new_iter(node, &memory);
    const std::unique_ptr<void, Free> iterator(memory);
    plist_t item = nullptr;
    for (plist_array_next_item(node, iterator.get(), &item); item;
         plist_array_next_item(node, iterator.get(), &item))
        items.push_back(valueOf(item));
    return items;
}

PropertyList dictionaryOf(plist_t node) {
    PropertyList::Dictionary entries;
    void* memory = nullptr;
    plist_dict_new_iter(node, &memory);
    const std::unique_ptr<void, Free> iterator(memory);
    for (;;) {
        char* text = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator.get(), &text, &item);
        const std::unique_ptr<char, Free> key(text);
        if (!item || !key)
            return entries;
        entries.insert_or_assign(validText(text, std::char_traits<char>::length(text)), valueOf(item));
    }
}

/// As deep as the tree is, which the checks before have bounded.
PropertyList valueOf(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT:
        return integerOf(node);
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_UID: {
        std::uint64_t value = 0;
        plist_get_uid_val(node, &value);
        return static_cast<std::int64_t>(value);
    }
    case PLIST_STRING:
    case PLIST_KEY:
        return textOf(node);
    case PLIST_DATA:
        return dataOf(node);
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_ARRAY:
        return arrayOf(node);
    case PLIST_DICT:
        return dictionaryOf(node);
    default:
        return {};
    }
}

Tree readXml(std::string_view text, const PropertyListLimits& limits) {
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    if (!isSoundXmlPropertyList(text, limits))
        return {};
    const NeutralLocale neutral;
    plist_t tree = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &tree);
    return Tree(tree);
}

Tree readBinary(std::string_view text, std::span<const std::uint8_t> bytes,
                const PropertyListLimits& limits) {
    if (!isSoundBinaryPropertyList(bytes, limits))
        return {};
    plist_t tree = nullptr;
    plist_from_bin(text.data(), static_cast<std::uint32_t>(text.size()), &tree);
    return Tree(tree);
}

} // namespace

std::optional<PropertyList> decodePropertyList(std::span<const std::uint8_t> bytes,
                                               const PropertyListLimits& limits) {
    // The reader counts bytes in 32 bits.
    if (bytes.empty() || bytes.size() > limits.maximumBytes ||
        bytes.size() > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const Tree tree = text.starts_with(binaryMagic) ? readBinary(text, bytes, limits) : readXml(text, limits);
    if (!tree)
        return std::nullopt;
    return valueOf(tree.get());
}

std::string encodePropertyList(const PropertyList& value) {
    return PropertyListWriter::document(value);
}

} // namespace foundation

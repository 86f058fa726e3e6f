#include "platform/foundation/XmlPropertyListCheck.h"

#include "platform/foundation/Utf8Validation.h"

#include <algorithm>
#include <array>
#include <optional>

#include <glib.h>

namespace foundation {

namespace {

constexpr std::array<std::string_view, 8> scalarElements = {"key",  "string", "integer", "real",
                                                            "true", "false",  "data",    "date"};
constexpr std::string_view whiteSpace = " \t\r\n";

bool isHexadecimalDigit(char c) {
    return g_ascii_isxdigit(c);
}
bool isDecimalDigit(char c) {
    return g_ascii_isdigit(c);
}

/// The five named entities and character references; `name` is what stands between "&" and ";".
bool isEntity(std::string_view name) {
    if (!name.starts_with('#'))
        return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
    name.remove_prefix(1);
    const bool hexadecimal = name.starts_with('x');
    if (hexadecimal)
        name.remove_prefix(1);
    constexpr std::size_t mostDigits = 7;
    return !name.empty() && name.size() <= mostDigits &&
           std::all_of(name.begin(), name.end(), hexadecimal ? isHexadecimalDigit : isDecimalDigit);
}

/// Quotes could hide the end of a mark from one reader and not from the other.
bool hasPairedQuotes(std::string_view mark) {
    return std::count(mark.begin(), mark.end(), '"') % 2 == 0;
}

class Check {
public:
    Check(std::string_view text, const PropertyListLimits& limits) : rest_(text), limits_(limits) {}

    bool run() {
        while (!rest_.empty()) {
            const std::size_t textEnd = std::min(rest_.find('<'), rest_.size());
            if (!isSoundText(rest_.substr(0, textEnd)))
                return false;
            rest_.remove_prefix(textEnd);
            if (!rest_.empty() && !takeMark())
                return false;
        }
        return nodes_ > 0 && depth_ == 0 && stage_ != Stage::Open;
    }

private:
    /// Where the check stands as to the outermost element.
    enum class Stage { Before, Open, Closed };

    bool isSoundText(std::string_view text) const {
        if (depth_ == 0)
            return text.find_first_not_of(whiteSpace) == std::string_view::npos;
        for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
            const std::size_t end = text.find(';', at);
            if (end == std::string_view::npos || !isEntity(text.substr(at + 1, end - at - 1)))
                return false;
        }
        return true;
    }

    bool takeMark() {
        if (rest_.starts_with("<!--"))
            return take("<!--", "-->").has_value();
        if (rest_.starts_with("<![CDATA["))
            return take("<![CDATA[", "]]>").has_value() && depth_ > 0;
        if (rest_.starts_with("<?")) {
            const auto instruction = take("<?", "?>");
            return instruction && hasPairedQuotes(*instruction);
        }
        if (rest_.starts_with("<!"))
            return takeDocumentType();
        if (rest_.starts_with("</")) {
            const auto name = take("</", ">");
            return name && closeElement(*name);
        }
        const auto element = take("<", ">");
        return element && openElement(*element);
    }

    /// Takes a mark away and answers what stands in it; nothing when its end is missing.
    std::optional<std::string_view> take(std::string_view opening, std::string_view closing) {
        const std::size_t end = rest_.find(closing, opening.size());
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view content = rest_.substr(opening.size(), end - opening.size());
        rest_.remove_prefix(end + closing.size());
        return content;
    }

    /// A document may name its type once, but declare nothing.
    bool takeDocumentType() {
        if (hasType_ || stage_ != Stage::Before || nodes_ > 0 || !rest_.starts_with("<!DOCTYPE"))
            return false;
        hasType_ = true;
        const auto type = take("<!DOCTYPE", ">");
        return type && type->find_first_of("[<") == std::string_view::npos && hasPairedQuotes(*type);
    }

    bool openElement(std::string_view element) {
        const std::string_view name = element.substr(0, element.find_first_of(" \t\r\n/"));
        const bool empty = element.ends_with('/');
        if (name == "plist")
            return !empty && openOutermost(element);
        if (stage_ == Stage::Closed || element.find_first_of("<\"") != std::string_view::npos)
            return false;
        const bool container = name == "dict" || name == "array";
        if (!container &&
            std::find(scalarElements.begin(), scalarElements.end(), name) == scalarElements.end())
            return false;
        if (++nodes_ > limits_.maximumNodes || (container && depth_ >= limits_.maximumDepth))
            return false;
        if (!empty)
            ++depth_;
        return true;
    }

    bool openOutermost(std::string_view element) {
        if (stage_ != Stage::Before || nodes_ > 0)
            return false;
        stage_ = Stage::Open;
        return element.find('<') == std::string_view::npos && hasPairedQuotes(element);
    }

    bool closeElement(std::string_view name) {
        if (name.find_first_of("<\"/") != std::string_view::npos)
            return false;
        if (depth_ > 0) {
            --depth_;
            return true;
        }
        if (stage_ != Stage::Open || !name.starts_with("plist"))
            return false;
        stage_ = Stage::Closed;
        return true;
    }

    std::string_view rest_;
    const PropertyListLimits& limits_;
    Stage stage_ = Stage::Before;
    bool hasType_ = false;
    std::size_t depth_ = 0;
    std::size_t nodes_ = 0;
};

} // namespace

bool isSoundXmlPropertyList(std::string_view text, const PropertyListLimits& limits) {
    return isValidUtf8(text) && Check(text, limits).run();
}

} // namespace foundation

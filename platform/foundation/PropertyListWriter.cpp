#include "platform/foundation/PropertyListWriter.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>

#include <glib.h>

namespace foundation {

namespace {

constexpr std::string_view header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
constexpr std::string_view footer = "</plist>\n";

/// The characters that most texts are made of, and that are written as they are.
bool isPlain(char c) {
    return (c >= ' ' && c < 0x7F && c != '&' && c != '<' && c != '>') || c == '\n' || c == '\t';
}

/// The character at `at` as XML has it, and how many bytes it took; none for what XML cannot hold.
std::string_view escaped(std::string_view text, std::size_t at, std::size_t& length) {
    const auto first = static_cast<unsigned char>(text[at]);
    length = 1;
    if (first >= 0x80) {
        const gunichar character =
            g_utf8_get_char_validated(text.data() + at, static_cast<gssize>(text.size() - at));
        const bool broken = character == static_cast<gunichar>(-1) || character == static_cast<gunichar>(-2);
        if (broken)
            return {};
        length = static_cast<std::size_t>(g_unichar_to_utf8(character, nullptr));
        return character == 0xFFFE || character == 0xFFFF ? std::string_view{} : text.substr(at, length);
    }
    switch (first) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        return "&#13;"; // a bare one would be read as a line's end
    default:
        return first < 0x20 ? std::string_view{} : text.substr(at, 1);
    }
}

} // namespace

std::string PropertyListWriter::document(const PropertyList& value) {
    PropertyListWriter writer;
    writer.out_ += header;
    writer.add(value, 0);
    writer.out_ += footer;
    return std::move(writer.out_);
}

void PropertyListWriter::addLine(std::size_t depth, std::string_view text) {
    out_.append(depth, '\t');
    out_ += text;
    out_ += '\n';
}

void PropertyListWriter::addElement(std::size_t depth, std::string_view name, std::string_view text) {
    out_.append(depth, '\t');
    out_.append("<").append(name).append(">");
    out_ += text;
    out_.append("</").append(name).append(">\n");
}

void PropertyListWriter::add(const PropertyList& value, std::size_t depth) {
    if (value.isNumber())
        addNumber(value, depth);
    else if (const std::string* text = value.string())
        addText(depth, "string", *text);
    else if (const PropertyList::Data* data = value.data())
        addData(*data, depth);
    else if (const PropertyList::Date* date = value.date())
        addDate(*date, depth);
    else if (const PropertyList::Array* array = value.array())
        addArray(*array, depth);
    else if (const PropertyList::Dictionary* dictionary = value.dictionary())
        addDictionary(*dictionary, depth);
}

void PropertyListWriter::addText(std::size_t depth, std::string_view name, std::string_view text) {
    std::string content;
    content.reserve(text.size());
    for (std::size_t at = 0, length = 0; at < text.size(); at += length) {
        const auto* begin = text.begin() + at;
        const auto* end = std::find_if_not(begin, text.end(), isPlain);
        content.append(begin, end);
        at += static_cast<std::size_t>(end - begin);
        if (at == text.size())
            break;
        content += escaped(text, at, length);
    }
    addElement(depth, name, content);
}

void PropertyListWriter::addNumber(const PropertyList& value, std::size_t depth) {
    if (value.isBool())
        addLine(depth, value.boolValue() ? "<true/>" : "<false/>");
    else if (value.isInteger())
        addElement(depth, "integer", std::to_string(value.integerValue()));
    else
        addReal(value.doubleValue(), depth);
}

void PropertyListWriter::addReal(double value, std::size_t depth) {
    if (std::isnan(value))
        return addElement(depth, "real", "nan");
    if (std::isinf(value))
        return addElement(depth, "real", value > 0 ? "+infinity" : "-infinity");
    // The shortest text that reads as the same number, in no one's locale.
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    addElement(depth, "real", {digits, result.ptr});
}

void PropertyListWriter::addData(const PropertyList::Data& data, std::size_t depth) {
    const std::unique_ptr<char, void (*)(void*)> text(g_base64_encode(data.data(), data.size()), g_free);
    addElement(depth, "data", text.get());
}

void PropertyListWriter::addDate(PropertyList::Date date, std::size_t depth) {
    using namespace std::chrono;
    // Years of four digits are all that the format has room for.
    constexpr sys_seconds earliest = sys_days{year{1} / 1 / 1};
    constexpr sys_seconds latest = sys_days{year{9999} / 12 / 31};
    constexpr sys_seconds reference = sys_days{year{2001} / 1 / 1};
    const double least = static_cast<double>((earliest - reference).count());
    const double greatest = static_cast<double>((latest - reference).count());
    const double sound = std::isnan(date.seconds) ? 0 : std::clamp(date.seconds, least, greatest);
    const sys_seconds moment = reference + seconds(static_cast<std::int64_t>(std::floor(sound)));
    const year_month_day day(floor<days>(moment));
    const hh_mm_ss time(moment - floor<days>(moment));
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    addElement(depth, "date", text);
}

void PropertyListWriter::addArray(const PropertyList::Array& array, std::size_t depth) {
    if (array.empty())
        return addLine(depth, "<array/>");
    addLine(depth, "<array>");
    for (const PropertyList& item : array)
        add(item, depth + 1);
    addLine(depth, "</array>");
}

void PropertyListWriter::addDictionary(const PropertyList::Dictionary& dictionary, std::size_t depth) {
    if (dictionary.empty())
        return addLine(depth, "<dict/>");
    addLine(depth, "<dict>");
    for (const auto& [key, value] : dictionary) {
        // The format knows no absent value: an entry of none is no entry.
        if (value.isNil())
            continue;
        addText(depth + 1, "key", key);
        add(value, depth + 1);
    }
    addLine(depth, "</dict>");
}

} // namespace foundation

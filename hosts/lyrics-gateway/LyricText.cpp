#include "hosts/lyrics-gateway/LyricText.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include <glib.h>

namespace gateway {

namespace {

/// More lines than this no song has, however often its chorus comes back.
constexpr std::size_t mostLines = 20'000;

struct Line {
    double time;
    std::string text;
};

bool isDigit(char c) {
    return g_ascii_isdigit(c);
}

/// Seconds for "mm:ss", "mm:ss.xx" or "mm:ss:xx"; nothing for any other text.
std::optional<double> timeOf(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0 || colon > 3 || text.size() < colon + 2)
        return std::nullopt;
    const std::string minutes(text.substr(0, colon));
    std::string seconds(text.substr(colon + 1));
    std::replace(seconds.begin(), seconds.end(), ':', '.');
    const bool plain =
        std::all_of(minutes.begin(), minutes.end(), isDigit) &&
        std::all_of(seconds.begin(), seconds.end(), [](char c) { return isDigit(c) || c == '.'; }) &&
        isDigit(seconds.front()) && seconds.size() <= 6;
    if (!plain)
        return std::nullopt;
    return g_ascii_strtod(minutes.c_str(), nullptr) * 60 + g_ascii_strtod(seconds.c_str(), nullptr);
}

/// The tag that `text` begins with, between `open` and `close`, taken off it; nothing when it begins with
/// none.
std::optional<std::string_view> takeTag(std::string_view& text, char open, char close) {
    const std::size_t end = text.find(close);
    if (!text.starts_with(open) || end == std::string_view::npos)
        return std::nullopt;
    const std::string_view tag = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return tag;
}

/// Tags of single words, "<01:23.45>", lie inside of a line.
std::string withoutWordTags(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        std::string_view rest = text;
        if (const auto tag = takeTag(rest, '<', '>'); tag && timeOf(*tag)) {
            text = rest;
            continue;
        }
        result += text.front();
        text.remove_prefix(1);
    }
    return result;
}

/// Whether a line is of the form "[key:value]" and nothing more.
bool saysSomethingAboutTheSong(std::string_view line) {
    const auto tag = takeTag(line, '[', ']');
    const std::size_t colon = tag ? tag->find(':') : std::string_view::npos;
    return line.empty() && colon != std::string_view::npos && colon > 0 &&
           std::all_of(tag->begin(), tag->begin() + static_cast<std::ptrdiff_t>(colon),
                       [](char c) { return g_ascii_isalpha(c) || c == '#'; });
}

void addLine(std::vector<Line>& lines, std::string_view line) {
    std::vector<double> times;
    for (std::string_view rest = line; const auto tag = takeTag(rest, '[', ']'); line = rest) {
        const auto time = timeOf(*tag);
        if (!time)
            break;
        times.push_back(*time);
    }
    if (times.empty() && saysSomethingAboutTheSong(line))
        return;
    // A line without a time belongs to the one before it.
    if (times.empty())
        times.push_back(lines.empty() ? 0 : lines.back().time);
    for (const double time : times)
        if (lines.size() < mostLines)
            lines.push_back({time, withoutWordTags(line)});
}

} // namespace

std::string withoutTimeTags(std::string_view text) {
    std::vector<Line> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        addLine(lines, line);
    }
    std::stable_sort(lines.begin(), lines.end(),
                     [](const Line& a, const Line& b) { return a.time < b.time; });
    std::string result;
    for (const Line& line : lines)
        result += line.text + "\n";
    return result;
}

std::string tidied(std::string_view text) {
    if (text.empty())
        return {};
    const std::unique_ptr<char, void (*)(void*)> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), g_free);
    std::string result;
    for (const char *at = valid.get(), *next = at; *at; at = next) {
        next = g_utf8_next_char(at);
        if (*at == '\r')
            result += *next == '\n' ? "" : "\n";
        else if (*at == '\n' || *at == '\t' || !g_unichar_iscntrl(g_utf8_get_char(at)))
            result.append(at, next);
    }
    constexpr const char* space = " \t\n";
    result.erase(result.find_last_not_of(space) + 1);
    result.erase(0, std::min(result.find_first_not_of("\n"), result.size()));
    return result;
}

} // namespace gateway

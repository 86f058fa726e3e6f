#include "hosts/media/engine/StreamList.h"

#include <glib.h>

#include <algorithm>
#include <memory>

namespace playback {

namespace {

using Uri = std::unique_ptr<GUri, decltype(&g_uri_unref)>;

bool startsWith(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() &&
           g_ascii_strncasecmp(text.data(), beginning.data(), beginning.size()) == 0;
}

bool endsWith(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && startsWith(text.substr(text.size() - ending.size()), ending);
}

bool isOfTheWeb(const std::string& address) {
    return startsWith(address, "http://") || startsWith(address, "https://");
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blank = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blank);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blank) - first + 1);
}

/// What a line names; empty when it names nothing.
std::string_view entryOf(std::string_view line, bool isPls) {
    if (!isPls)
        return line.starts_with('#') ? std::string_view() : line;
    const std::size_t sign = line.find('=');
    return startsWith(line, "File") && sign != std::string_view::npos ? trimmed(line.substr(sign + 1))
                                                                      : std::string_view();
}

std::string resolved(std::string_view entry, const std::string& address) {
    gchar* text = g_uri_resolve_relative(address.c_str(), std::string(entry).c_str(),
                                         G_URI_FLAGS_PARSE_RELAXED, nullptr);
    const std::string result = text ? text : "";
    g_free(text);
    return isOfTheWeb(result) ? result : "";
}

} // namespace

bool namesStreamList(const std::string& address) {
    if (!isOfTheWeb(address))
        return false;
    const Uri uri(g_uri_parse(address.c_str(), G_URI_FLAGS_PARSE_RELAXED, nullptr), g_uri_unref);
    const std::string_view path = uri ? g_uri_get_path(uri.get()) : "";
    return endsWith(path, ".m3u") || endsWith(path, ".pls");
}

std::vector<std::string> streamsOfList(std::string_view text, const std::string& address) {
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    std::vector<std::string> streams;
    if (text.find("#EXT-X-") != std::string_view::npos)
        return streams;
    const bool isPls = startsWith(trimmed(text), "[playlist]");
    while (!text.empty() && streams.size() < mostStreamsOfList) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size() - 1);
        const std::string_view entry = entryOf(trimmed(text.substr(0, end + 1)), isPls);
        text.remove_prefix(end + 1);
        const std::string stream = entry.empty() ? std::string() : resolved(entry, address);
        if (!stream.empty())
            streams.push_back(stream);
    }
    return streams;
}

} // namespace playback

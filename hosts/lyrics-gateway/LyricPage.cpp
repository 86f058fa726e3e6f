#include "hosts/lyrics-gateway/LyricPage.h"

#include "platform/foundation/TextReplacement.h"

#include <memory>

#include <glib.h>

using foundation::replacingOccurrences;

namespace gateway {

namespace {

constexpr const char* lookAlike = "\xE2\x80\xB9"; // ‹

std::string escaped(const std::string& text) {
    const std::unique_ptr<char, void (*)(void*)> result(
        g_markup_escape_text(text.data(), static_cast<gssize>(text.size())), g_free);
    return result.get();
}

/// What could be taken for a tag, or for the end of the lyric, becomes something that looks like it.
std::string harmless(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = at + 1 < text.size() ? text[at + 1] : ' ';
        const bool tag = text[at] == '<' && (g_ascii_isalpha(next) || next == '/' || next == '!');
        if (tag)
            result += lookAlike;
        else
            result += text[at];
    }
    return replacingOccurrences(result, ",\"media\"", ", \"media\"");
}

std::string page(const std::string& artist, const std::string& title, const std::string& body) {
    return "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + escaped(artist + ":" + title) +
           "</title></head>\n<body>" + body + "</body></html>\n";
}

} // namespace

std::string lyricPage(const std::string& artist, const std::string& title, const std::string& text) {
    // The box is an element whose text is no markup: a reader that asks for the markup inside of it gets "&"
    // as
    // "&", where any other element would give it as an entity.
    return page(artist, title,
                "<script type=\"text/plain\" class=\"lyricbox\">{\"content\":\"<p>" +
                    replacingOccurrences(harmless(text), "\n", "<br>") + "\",\"media\":[]}</script>");
}

std::string emptyPage(const std::string& artist, const std::string& title, const std::string& message) {
    return page(artist, title, "<p>" + escaped(message) + "</p>");
}

} // namespace gateway

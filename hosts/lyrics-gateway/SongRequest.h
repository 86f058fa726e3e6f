// What song somebody asks for, and in what form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace gateway {

struct SongRequest {
    enum class Form { Page, PlainText };

    Form form = Form::Page;
    std::string artist;
    std::string title;

    /// The most bytes that a name may have.
    static constexpr std::size_t longestName = 1000;

    /// Reads "/wiki/ARTIST:TITLE", a page, and "/wiki/?artist=ARTIST&song=TITLE", plain text. `target` is the
    /// request line's, still encoded, and names may hold "&", "?", "=" and "/" as they are. The first colon
    /// ends a page's artist. Nothing for another target and for names that are empty, too long or no text.
    static std::optional<SongRequest> parse(std::string_view target);
};

} // namespace gateway

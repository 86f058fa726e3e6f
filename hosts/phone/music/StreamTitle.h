// What a stream says that it plays.
#pragma once

#include <string>
#include <string_view>

namespace phone {

struct StreamTitle {
    std::string title;
    std::string artist;

    /// Takes "Artist - Title" apart at the first dash that stands between blanks; a text without one is all
    /// title. Blanks at either end of both are left out.
    static StreamTitle parse(std::string_view text);

    friend bool operator==(const StreamTitle&, const StreamTitle&) = default;
};

} // namespace phone

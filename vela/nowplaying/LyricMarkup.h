// A lyric as the wiki's pages hold it.
#pragma once

#include <optional>
#include <string>

namespace vela {

/// The plain text in a lyric box's markup; nothing for a box of another form. Closing tags stay in the text,
/// as only what the wiki's pages open is taken away.
std::optional<std::string> textOfLyricMarkup(std::string markup);

} // namespace vela

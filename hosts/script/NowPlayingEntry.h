// One KEY=VALUE of what a script reports to play.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <string>
#include <string_view>
#include <utility>

namespace script {

/// A key of the now-playing dictionary may leave out what all of them begin with: "title" is
/// "kMRMediaRemoteNowPlayingInfoTitle". Values of the keys that hold numbers are numbers if they can be, all
/// others texts. Throws std::invalid_argument for a word without "=" or with nothing before it.
std::pair<std::string, foundation::PropertyList> parseNowPlayingEntry(std::string_view word);

} // namespace script

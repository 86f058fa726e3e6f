// Tags as bytes, and back.
#pragma once

#include "hosts/media/library/ByteCoding.h"
#include "hosts/media/library/SongTags.h"

#include <optional>

namespace playback {

/// Writes the tags, or that there are none.
void writeTags(ByteWriter& writer, const std::optional<SongTags>& tags);
/// What writeTags() wrote; whether that was there is known from the reader.
std::optional<SongTags> readTags(ByteReader& reader);

} // namespace playback

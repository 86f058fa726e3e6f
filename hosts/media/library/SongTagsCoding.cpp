#include "hosts/media/library/SongTagsCoding.h"

#include <bit>

namespace playback {

void writeTags(ByteWriter& writer, const std::optional<SongTags>& tags) {
    writer.number(tags.has_value());
    if (!tags)
        return;
    for (const auto* text :
         {&tags->title, &tags->artist, &tags->album, &tags->albumArtist, &tags->composer, &tags->genre})
        writer.text(*text);
    writer.number(tags->trackNumber);
    writer.number(tags->discNumber);
    writer.number(std::bit_cast<std::uint64_t>(tags->duration));
    writer.number(tags->hasCover);
}

std::optional<SongTags> readTags(ByteReader& reader) {
    if (reader.number() == 0)
        return std::nullopt;
    SongTags tags;
    for (auto* text :
         {&tags.title, &tags.artist, &tags.album, &tags.albumArtist, &tags.composer, &tags.genre})
        *text = reader.text();
    tags.trackNumber = static_cast<unsigned>(reader.number());
    tags.discNumber = static_cast<unsigned>(reader.number());
    tags.duration = std::bit_cast<double>(reader.number());
    tags.hasCover = reader.number() != 0;
    return tags;
}

} // namespace playback

#include "hosts/media/library/TagReader.h"

#include "hosts/media/Text.h"
#include "hosts/media/library/EmbeddedCover.h"
#include "hosts/media/library/TagStream.h"

#include <algorithm>
#include <array>
#include <exception>

#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

#include <glib.h>

namespace playback {

namespace {

constexpr std::array<std::string_view, 10> audioFileSuffixes = {".mp3", ".flac", ".ogg",  ".oga", ".opus",
                                                                ".m4a", ".wav",  ".aiff", ".aif", ".wv"};
constexpr unsigned largestTrackNumber = 9999;
constexpr double longestDuration = 7 * 24 * 3600; // seconds; a longer one is a mistake of the file

/// What `read` makes of the file opened for its tags; the value of an empty file when it is no song, or when
/// reading it takes more than there is.
template <class Value, class Read>
Value readFile(const std::filesystem::path& path, Read read) {
    try {
        TagStream stream(path);
        if (!stream.isOpen())
            return Value();
        const TagLib::FileRef reference(&stream);
        if (reference.isNull() || !reference.file()->isValid() || !reference.tag())
            return Value();
        return read(*reference.file());
    } catch (const std::exception&) {
        return Value();
    }
}

std::string textOf(const TagLib::String& text, std::size_t maximumBytes = maximumNameBytes) {
    // A character has at least one byte, so that nothing of what is kept is cut off here.
    return cleanText(text.substr(0, static_cast<unsigned>(maximumBytes)).to8Bit(true), maximumBytes);
}

unsigned numberOf(unsigned number) {
    return number <= largestTrackNumber ? number : 0;
}

unsigned firstNumber(const TagLib::PropertyMap& properties, const char* name) {
    const auto found = properties.find(name);
    if (found == properties.end() || found->second.isEmpty())
        return 0;
    return numberOf(static_cast<unsigned>(std::max(0, found->second.front().toInt())));
}

std::string firstText(const TagLib::PropertyMap& properties, const char* name) {
    const auto found = properties.find(name);
    if (found == properties.end() || found->second.isEmpty())
        return {};
    return textOf(found->second.front());
}

double durationOf(const TagLib::AudioProperties& sound) {
    const double seconds = sound.lengthInMilliseconds() / 1000.0;
    return seconds > 0 && seconds <= longestDuration ? seconds : 0;
}

std::optional<SongTags> tagsOf(TagLib::File& file) {
    const TagLib::AudioProperties* sound = file.audioProperties();
    if (!sound || (sound->lengthInMilliseconds() <= 0 && sound->sampleRate() <= 0))
        return std::nullopt;
    const TagLib::Tag& tag = *file.tag();
    const TagLib::PropertyMap properties = file.properties();
    SongTags tags;
    tags.title = textOf(tag.title());
    tags.artist = textOf(tag.artist());
    tags.album = textOf(tag.album());
    tags.genre = textOf(tag.genre());
    tags.albumArtist = firstText(properties, "ALBUMARTIST");
    tags.composer = firstText(properties, "COMPOSER");
    tags.trackNumber = numberOf(tag.track());
    tags.discNumber = firstNumber(properties, "DISCNUMBER");
    tags.duration = durationOf(*sound);
    tags.hasCover = !embeddedCover(file).isEmpty();
    return tags;
}

std::optional<std::string> lyricsOf(const TagLib::File& file) {
    for (const auto& [name, values] : file.properties()) {
        // Words with a description are listed under "LYRICS:description".
        const bool words = name == "LYRICS" || name == "UNSYNCEDLYRICS" || name.startsWith("LYRICS:");
        if (!words || values.isEmpty())
            continue;
        if (auto text = textOf(values.front(), maximumLyricsBytes); !text.empty())
            return text;
    }
    return std::nullopt;
}

} // namespace

bool isAudioFileName(std::string_view name) {
    return std::any_of(audioFileSuffixes.begin(), audioFileSuffixes.end(), [name](std::string_view suffix) {
        return name.size() > suffix.size() && g_ascii_strncasecmp(name.data() + name.size() - suffix.size(),
                                                                  suffix.data(), suffix.size()) == 0;
    });
}

std::optional<SongTags> readTags(const std::filesystem::path& file) {
    return readFile<std::optional<SongTags>>(file, tagsOf);
}

std::vector<std::uint8_t> readCover(const std::filesystem::path& file) {
    using Bytes = std::vector<std::uint8_t>;
    return readFile<Bytes>(file, [](TagLib::File& opened) {
        const TagLib::ByteVector cover = embeddedCover(opened);
        return cover.size() <= maximumCoverBytes ? Bytes(cover.begin(), cover.end()) : Bytes();
    });
}

std::optional<std::string> readLyrics(const std::filesystem::path& file) {
    return readFile<std::optional<std::string>>(file, lyricsOf);
}

} // namespace playback

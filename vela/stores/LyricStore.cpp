// The lyric store of VelaSettingsManager: one property list, read whole for a look-up and rewritten whole for
// a change.
#include "platform/foundation/FileManager.h"
#include "platform/media/MPMediaItem.h"
#include "vela/stores/Paths.h"
#include "vela/stores/SongKey.h"
#include "vela/stores/VelaSettingsManager.h"

#include <functional>

using foundation::FileManager;
using foundation::PropertyList;

namespace vela {

namespace {

constexpr const char* knownToHaveNone = "No lyric";

void changeLyrics(const std::function<void(PropertyList::Dictionary&)>& change) {
    auto& files = FileManager::shared();
    auto lyrics = files.readDictionary(paths::lyrics).value_or(PropertyList::Dictionary());
    change(lyrics);
    files.writeDictionaryAtomically(paths::lyrics, lyrics);
}

std::string textProperty(const media::MPMediaItem& song, const char* name) {
    const PropertyList value = song.valueForProperty(name);
    return value.string() ? *value.string() : std::string();
}

std::string keyOf(const media::MPMediaItem& song) {
    return songKey(textProperty(song, media::MPMediaItemPropertyTitle),
                   textProperty(song, media::MPMediaItemPropertyArtist));
}

} // namespace

void VelaSettingsManager::addLyric(const std::string& lyric, const std::string& title,
                                   const std::string& artist) {
    addLyric(lyric.empty() ? knownToHaveNone : lyric, songKey(title, artist));
}

std::optional<std::string> VelaSettingsManager::getLyricForSongName(const std::string& title,
                                                                    const std::string& artist) const {
    return getLyricForSongTitle(songKey(title, artist));
}

void VelaSettingsManager::addLyric(const std::string& lyric,
                                   const std::shared_ptr<media::MPMediaItem>& song) {
    // An empty text is no "No lyric" here, so that the song is asked for again.
    if (song)
        addLyric(lyric, keyOf(*song));
}

std::optional<std::string>
VelaSettingsManager::getLyricForSong(const std::shared_ptr<media::MPMediaItem>& song) const {
    return song ? getLyricForSongTitle(keyOf(*song)) : std::string();
}

std::optional<PropertyList::Dictionary> VelaSettingsManager::getLyrics() const {
    return FileManager::shared().readDictionary(paths::lyrics);
}

std::optional<std::string> VelaSettingsManager::getLyricForSongTitle(const std::string& key) const {
    const auto lyrics = getLyrics();
    if (!lyrics)
        return std::nullopt;
    const auto found = lyrics->find(key);
    const std::string* text = found == lyrics->end() ? nullptr : found->second.string();
    return text ? std::optional(*text) : std::nullopt;
}

void VelaSettingsManager::addLyric(const std::string& lyric, const std::string& key) {
    changeLyrics([&](PropertyList::Dictionary& lyrics) { lyrics[key] = lyric; });
}

void VelaSettingsManager::removeLyric(const std::string& key) {
    changeLyrics([&](PropertyList::Dictionary& lyrics) { lyrics.erase(key); });
}

} // namespace vela

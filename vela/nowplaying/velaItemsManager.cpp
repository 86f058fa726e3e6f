#include "vela/nowplaying/velaItemsManager.h"

#include "platform/media/MPMediaQuery.h"
#include "vela/stores/VelaSettingsManager.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

using foundation::PropertyList;
using media::MPMediaItem;

namespace vela {

namespace {

/// The whole number that is written in decimal digits like `identifier`; nothing when none is.
std::optional<std::int64_t> numberWrittenLike(const PropertyList& identifier) {
    if (const std::string* text = identifier.string()) {
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
        const bool whole = error == std::errc() && end == text->data() + text->size();
        return whole && std::to_string(number) == *text ? std::optional(number) : std::nullopt;
    }
    if (!identifier.isNumber())
        return std::nullopt;
    const std::int64_t number = identifier.integerValue();
    const bool whole = static_cast<double>(number) == identifier.doubleValue();
    return whole ? std::optional(number) : std::nullopt;
}

bool isSameSong(const MPMediaItem& one, const MPMediaItem& other) {
    return &one == &other || (one.persistentID() != 0 && one.persistentID() == other.persistentID());
}

} // namespace

velaItemsManager& velaItemsManager::sharedInstance() {
    static auto& manager = *new velaItemsManager; // never torn down
    return manager;
}

media::SharedMediaItems velaItemsManager::getAllSongs() const {
    return media::MPMediaQuery::songsQuery()->items();
}

std::shared_ptr<MPMediaItem>
velaItemsManager::getMediaItemByIdentifier(const PropertyList& identifier) const {
    const auto number = numberWrittenLike(identifier);
    if (!number)
        return nullptr;
    const auto songs = getAllSongs();
    const auto found = std::find_if(songs->begin(), songs->end(), [&](const auto& song) {
        const PropertyList* own = song->storedProperty(media::MPMediaItemPropertyPersistentID);
        return own && own->integerValue() == *number;
    });
    return found == songs->end() ? nullptr : *found;
}

media::MediaItems velaItemsManager::getAllSongsWithKey(const std::string& key,
                                                       const std::shared_ptr<MPMediaItem>& firstSong) const {
    media::MediaItems related{firstSong};
    const PropertyList type = VelaSettingsManager::sharedInstance().getTypeOfEntityToLoad();
    if (type.equals("queue"))
        return related;
    const char* property =
        type.equals("album") ? media::MPMediaItemPropertyAlbumTitle : media::MPMediaItemPropertyArtist;
    const auto songs = getAllSongs();
    for (const auto& song : *songs) {
        const PropertyList* value = song->storedProperty(property);
        if (value && value->equals(key) && !(firstSong && isSameSong(*song, *firstSong)))
            related.push_back(song);
    }
    return related;
}

} // namespace vela

#include "hosts/media/library/SongList.h"

#include "hosts/media/Text.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <unordered_set>

#include <glib.h>

namespace playback {

namespace {

using GText = std::unique_ptr<char, void (*)(gpointer)>;

/// Over 0, and the same wherever and whenever it is made.
std::int64_t identifierOf(const std::string& path) {
    const std::unique_ptr<GChecksum, void (*)(GChecksum*)> checksum(g_checksum_new(G_CHECKSUM_SHA1),
                                                                    g_checksum_free);
    g_checksum_update(checksum.get(), reinterpret_cast<const guchar*>(path.data()),
                      static_cast<gssize>(path.size()));
    std::array<guint8, 20> digest{};
    gsize length = digest.size();
    g_checksum_get_digest(checksum.get(), digest.data(), &length);
    std::uint64_t value = 0;
    for (std::size_t index = 0; index < 8; ++index)
        value = value << 8 | digest[index];
    return std::max<std::int64_t>(1, static_cast<std::int64_t>(value >> 2));
}

std::string titleOf(const LibraryEntry& entry) {
    if (!entry.tags->title.empty())
        return entry.tags->title;
    return cleanText(std::filesystem::path(entry.file.path).stem().string());
}

std::string addressOf(const std::string& path) {
    const GText uri(g_filename_to_uri(path.c_str(), nullptr, nullptr), g_free);
    return uri ? uri.get() : "";
}

std::map<std::string, foundation::PropertyList> propertiesOf(const LibraryEntry& entry,
                                                             std::int64_t persistentID) {
    const SongTags& tags = *entry.tags;
    std::map<std::string, foundation::PropertyList> properties{
        {media::MPMediaItemPropertyPersistentID, persistentID},
        {media::MPMediaItemPropertyTitle, titleOf(entry)},
        {media::MPMediaItemPropertyPlaybackDuration, tags.duration},
        {media::MPMediaItemPropertyAssetURL, addressOf(entry.file.path)},
    };
    const auto addText = [&](const char* name, const std::string& text) {
        if (!text.empty())
            properties.emplace(name, text);
    };
    const auto addNumber = [&](const char* name, unsigned number) {
        if (number > 0)
            properties.emplace(name, static_cast<std::int64_t>(number));
    };
    addText(media::MPMediaItemPropertyArtist, tags.artist);
    addText(media::MPMediaItemPropertyAlbumTitle, tags.album);
    addText(media::MPMediaItemPropertyAlbumArtist, tags.albumArtist);
    addText(media::MPMediaItemPropertyComposer, tags.composer);
    addText(media::MPMediaItemPropertyGenre, tags.genre);
    addNumber(media::MPMediaItemPropertyAlbumTrackNumber, tags.trackNumber);
    addNumber(media::MPMediaItemPropertyDiscNumber, tags.discNumber);
    return properties;
}

std::string folded(const std::string& text) {
    return GText(g_utf8_casefold(text.c_str(), static_cast<gssize>(text.size())), g_free).get();
}

/// What a song is put in order by: texts that compare like the songs. Texts of tags hold no NUL, so one ends
/// a name before anything that a longer name goes on with.
std::string orderOf(const LibraryEntry& entry) {
    const SongTags& tags = *entry.tags;
    std::array<char, 24> numbers{};
    g_snprintf(numbers.data(), numbers.size(), "%010u%010u", tags.discNumber, tags.trackNumber);
    std::string order;
    for (const std::string& part : {folded(tags.artist), folded(tags.album), std::string(numbers.data()),
                                    folded(titleOf(entry)), entry.file.path})
        (order += part) += '\0';
    return order;
}

} // namespace

SongList::SongList() : items_(std::make_shared<media::MediaItems>()) {}

SongList::SongList(const std::vector<LibraryEntry>& entries, const SongList& previous) {
    std::vector<std::pair<std::string, const LibraryEntry*>> ordered;
    ordered.reserve(entries.size());
    for (const LibraryEntry& entry : entries)
        if (entry.tags)
            ordered.emplace_back(orderOf(entry), &entry);
    std::sort(ordered.begin(), ordered.end());

    auto items = std::make_shared<media::MediaItems>();
    items->reserve(ordered.size());
    songs_.reserve(ordered.size());
    std::unordered_set<std::int64_t> taken;
    for (const auto& [order, entry] : ordered) {
        std::int64_t identifier = identifierOf(entry->file.path);
        while (!taken.insert(identifier).second)
            ++identifier;
        items->push_back(itemFor(*entry, identifier, previous));
        songs_.push_back({identifier, entry->file.modified, entry->file.size, items->back()});
    }
    items_ = std::move(items);
    std::sort(songs_.begin(), songs_.end(),
              [](const Song& left, const Song& right) { return left.persistentID < right.persistentID; });
}

std::shared_ptr<media::MPMediaItem> SongList::itemFor(const LibraryEntry& entry, std::int64_t persistentID,
                                                      const SongList& previous) const {
    const Song* song = previous.find(persistentID);
    if (song && song->modified == entry.file.modified && song->size == entry.file.size)
        return song->item;
    const auto cover =
        entry.tags->hasCover ? media::MPMediaItem::Cover::InLibrary : media::MPMediaItem::Cover::None;
    return std::make_shared<media::MPMediaItem>(propertiesOf(entry, persistentID), cover);
}

const SongList::Song* SongList::find(std::int64_t persistentID) const {
    const auto found =
        std::lower_bound(songs_.begin(), songs_.end(), persistentID,
                         [](const Song& song, std::int64_t wanted) { return song.persistentID < wanted; });
    return found != songs_.end() && found->persistentID == persistentID ? &*found : nullptr;
}

std::shared_ptr<media::MPMediaItem> SongList::item(std::int64_t persistentID) const {
    const Song* song = find(persistentID);
    return song ? song->item : nullptr;
}

std::string SongList::path(std::int64_t persistentID) const {
    const Song* song = find(persistentID);
    if (!song)
        return {};
    const std::string& address = *song->item->storedProperty(media::MPMediaItemPropertyAssetURL)->string();
    const GText path(g_filename_from_uri(address.c_str(), nullptr, nullptr), g_free);
    return path ? path.get() : "";
}

} // namespace playback

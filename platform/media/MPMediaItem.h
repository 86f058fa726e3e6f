// A song: its properties by name, and its cover.
//
// An empty item stands for a song outside the library. What an item was made with never changes, so that
// lists of items are shared; items may be made on any thread and are used on the main thread.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/media/MPMediaItemArtwork.h"
#include "platform/runtime/Class.h"
#include "platform/runtime/Selector.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace media {

inline constexpr const char* MPMediaItemPropertyPersistentID = "persistentID"; // a whole number over 0
inline constexpr const char* MPMediaItemPropertyTitle = "title";
inline constexpr const char* MPMediaItemPropertyArtist = "artist";
inline constexpr const char* MPMediaItemPropertyAlbumTitle = "albumTitle";
inline constexpr const char* MPMediaItemPropertyAlbumArtist = "albumArtist";
inline constexpr const char* MPMediaItemPropertyAlbumTrackNumber = "albumTrackNumber";
inline constexpr const char* MPMediaItemPropertyDiscNumber = "discNumber";
inline constexpr const char* MPMediaItemPropertyComposer = "composer";
inline constexpr const char* MPMediaItemPropertyGenre = "genre";
inline constexpr const char* MPMediaItemPropertyPlaybackDuration = "playbackDuration"; // seconds, real
inline constexpr const char* MPMediaItemPropertyAssetURL = "assetURL";                 // "file://…"
/// Answered by artwork(), since a cover is no value of a property list.
inline constexpr const char* MPMediaItemPropertyArtwork = "artwork";
/// Read from the song's file at every call: a library keeps no lyrics.
inline constexpr const char* MPMediaItemPropertyLyrics = "lyrics";

class MPMediaItem : public runtime::Object {
    RUNTIME_CLASS()
public:
    MPMediaItem() = default;
    /// Whether the song has a cover is known from its library; the cover itself is only read when it is
    /// asked for.
    enum class Cover { None, InLibrary };
    explicit MPMediaItem(const std::map<std::string, foundation::PropertyList>& properties,
                         Cover cover = Cover::None);

    /// Nil for a property that the item does not have.
    foundation::PropertyList valueForProperty(std::string_view name) const;
    /// The stored property itself, without a copy; null for one that the item does not have.
    const foundation::PropertyList* storedProperty(std::string_view name) const;

    /// The property of that name, empty when absent.
    std::string artist() const;
    /// 0 for a song outside the library.
    std::int64_t persistentID() const { return persistentID_; }
    /// The value of MPMediaItemPropertyArtwork; null for a song without a cover.
    std::shared_ptr<MPMediaItemArtwork> artwork() const;

private:
    struct Property {
        runtime::Selector name; // interned: a large library repeats the same few names
        foundation::PropertyList value;
    };
    std::vector<Property> properties_;
    std::int64_t persistentID_ = 0;
    Cover cover_ = Cover::None;
};

using MediaItems = std::vector<std::shared_ptr<MPMediaItem>>;
/// A list that many hold: it never changes, a changed library hands out another one.
using SharedMediaItems = std::shared_ptr<const MediaItems>;

} // namespace media

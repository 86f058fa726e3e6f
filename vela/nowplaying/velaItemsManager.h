// Looks songs up in the media library, by walking through all of it.
//
// The one instance is never destroyed. Main thread only.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/media/MPMediaItem.h"

#include <memory>
#include <string>

namespace vela {

class velaItemsManager {
public:
    static velaItemsManager& sharedInstance();

    velaItemsManager(const velaItemsManager&) = delete;
    velaItemsManager& operator=(const velaItemsManager&) = delete;

    /// Every song of the library, in its order; never null.
    media::SharedMediaItems getAllSongs() const;
    /// The first song whose persistent identifier, in decimal digits, is written like `identifier`, a number
    /// or a text; null when there is none.
    std::shared_ptr<media::MPMediaItem>
    getMediaItemByIdentifier(const foundation::PropertyList& identifier) const;
    /// `firstSong`, and behind it the other songs whose album ("Load songs with" is "album") or artist (any
    /// other choice) is `key` to the letter.
    media::MediaItems getAllSongsWithKey(const std::string& key,
                                         const std::shared_ptr<media::MPMediaItem>& firstSong) const;

private:
    velaItemsManager() = default;
};

} // namespace vela

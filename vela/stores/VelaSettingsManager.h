// The process-wide door to everything that the product keeps on disk: settings, lyrics, artworks, plug-ins.
//
// Nothing is cached: every call reads the files afresh, which is how a change made in the settings process is
// seen here without any message between the two. Writes replace the whole file atomically; two writers do not
// lock each other out, the last one wins. A missing or unreadable file reads as an empty one, a failed write
// is silent. The one instance is never destroyed.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace media {
class MPMediaItem;
}
namespace toolkit {
class Image;
}

namespace vela {

class VelaSettingsManager {
public:
    static VelaSettingsManager& sharedInstance();

    VelaSettingsManager(const VelaSettingsManager&) = delete;
    VelaSettingsManager& operator=(const VelaSettingsManager&) = delete;

    // Preferences.

    /// The value stored under `key`, or nil.
    foundation::PropertyList getPreferenceForKey(const std::string& key) const;
    /// Stores one value and keeps every other entry of the file as it now stands.
    void setPreference(const foundation::PropertyList& value, const std::string& key);

    /// Width of the touch strips in points: 30 for "Height", 5 for "Low", 15 for everything else.
    float sensibilityOfVelaGrabber() const;
    /// "full", "half_top", "half_bottom", whatever else is stored, or nil.
    foundation::PropertyList grabberHeight() const;
    bool isLeftControllerDisabled() const;
    /// Whether the chevrons lie on the dimmed area ("Alternative chevrons") instead of on the panels.
    bool isChevronsHidden() const;
    /// NO exactly when "Lockscreen" is on.
    bool isVelaAccessibleFromLockScreen() const;
    /// "artist" for a stored "queue", else what is stored, nil included.
    foundation::PropertyList getTypeOfEntityToLoad() const;
    /// YES once, which the file then remembers, NO ever after.
    bool canShowTutorial();

    // Lyrics, by the key "TITLE_ARTIST". An empty title or artist leaves its side of the underscore empty.
    // Any thread; two writers at once may lose an entry.

    /// addLyric:forSongName:artist: stores "No lyric" for an empty text: the song has none, and need not be
    /// asked for again.
    void addLyric(const std::string& lyric, const std::string& title, const std::string& artist);
    /// Nothing for a song that was never looked up.
    std::optional<std::string> getLyricForSongName(const std::string& title, const std::string& artist) const;
    /// addLyric:forSong: stores an empty text as it is, which later lookups take for no entry. Nothing
    /// happens without an item.
    void addLyric(const std::string& lyric, const std::shared_ptr<media::MPMediaItem>& song);
    /// The empty string without an item.
    std::optional<std::string> getLyricForSong(const std::shared_ptr<media::MPMediaItem>& song) const;
    /// Every entry; nothing when the file is missing or unreadable.
    std::optional<foundation::PropertyList::Dictionary> getLyrics() const;
    /// By a key as getLyrics lists it.
    std::optional<std::string> getLyricForSongTitle(const std::string& key) const;
    /// addLyric:forTitle: stores any text, empty or not, under a key as getLyrics lists it.
    void addLyric(const std::string& lyric, const std::string& key);
    void removeLyric(const std::string& key);

    // Artworks, PNG files named like the lyrics' keys. A name that cannot be a file is neither stored nor
    // found. Any thread.

    /// addArtWork:forSongName:artist: stores the picture under a name that says the screen's scale; null
    /// stores nothing.
    void addArtWork(const std::shared_ptr<const toolkit::Image>& image, const std::string& title,
                    const std::string& artist);
    /// The picture of the screen's scale or else the plain one; null when there is neither.
    std::shared_ptr<const toolkit::Image> getImageForSongName(const std::string& title,
                                                              const std::string& artist) const;
    /// Names of the stored artworks in the folder's own order, one for each file: an artwork that is there in
    /// two scales is named twice.
    std::vector<std::string> getArtworks() const;
    /// Deletes the first file whose name contains `name` anywhere, be it another song's, and no further one.
    void removeArtwork(const std::string& name);

    // Plug-ins. The folder is listed anew on each call.

    /// What each plug-in's bundle says of itself, by identifier.
    using VelaApps = std::map<std::string, foundation::PropertyList::Dictionary>;
    /// The plug-ins that are not hidden; of several bundles with one identifier the last listed. Nothing, and
    /// a log line, when the folder cannot be listed.
    std::optional<VelaApps> getVelaApps() const;
    /// The bundle's directory with a slash at its end, hidden or not; of several the first listed. Nothing
    /// for an unknown identifier.
    std::optional<std::string> getBundlePathByIdentifier(const std::string& identifier) const;

private:
    VelaSettingsManager() = default;
};

} // namespace vela

#include "hosts/media/mpris/SongOfTrack.h"

namespace playback {

namespace {

struct TextRelease {
    void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, TextRelease>;

/// A file's address as the library writes it: others escape more characters, or fewer.
std::string addressOf(const std::string& url) {
    const Text path(g_filename_from_uri(url.c_str(), nullptr, nullptr));
    const Text address(path ? g_filename_to_uri(path.get(), nullptr, nullptr) : nullptr);
    return address ? address.get() : "";
}

bool says(const media::MPMediaItem& song, const char* property, const std::string& text) {
    const foundation::PropertyList* value = song.storedProperty(property);
    return !text.empty() && value && value->equals(text);
}

} // namespace

std::shared_ptr<media::MPMediaItem> songOfTrack(const media::MediaItems& songs, const TrackMetadata& track) {
    const std::string address = addressOf(track.url);
    std::shared_ptr<media::MPMediaItem> namesake;
    for (const auto& song : songs) {
        if (says(*song, media::MPMediaItemPropertyAssetURL, address))
            return song;
        if (!namesake && says(*song, media::MPMediaItemPropertyTitle, track.title) &&
            says(*song, media::MPMediaItemPropertyArtist, track.artist))
            namesake = song;
    }
    return namesake;
}

} // namespace playback

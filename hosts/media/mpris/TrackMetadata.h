// What another player says of its track, made fit to be shown.
//
// Players tell nonsense: negative lengths, values of other types, titles of a megabyte. What cannot be used
// counts as not told.
#pragma once

#include "hosts/media/mpris/Variant.h"

#include <optional>
#include <string>

namespace playback {

struct TrackMetadata {
    std::string trackId; // a path of the bus; empty when it has none
    std::string title;
    std::string artist; // several are joined with ", "
    std::string album;
    double duration = 0; // seconds, 0 for unknown
    std::string url;

    /// `metadata`: the player's dictionary, or anything else.
    static TrackMetadata parse(GVariant* metadata);
    /// Whether there is a track at all.
    bool isTrack() const { return !title.empty() || !url.empty(); }
    /// Whether this is another track than that one, and not the same, known better.
    bool isOther(const TrackMetadata& that) const;

    friend bool operator==(const TrackMetadata&, const TrackMetadata&) = default;
};

/// A number of any type of the bus; nothing for all else, and for what is not finite.
std::optional<double> numberIn(GVariant* value);
/// A text, made fit to be shown; nothing for what is none.
std::optional<std::string> textIn(GVariant* value);

} // namespace playback

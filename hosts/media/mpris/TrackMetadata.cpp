#include "hosts/media/mpris/TrackMetadata.h"

#include "hosts/media/Text.h"

#include <algorithm>
#include <cmath>

namespace playback {

namespace {

constexpr double longestDuration = 7 * 24 * 3600; // seconds
constexpr gsize mostArtists = 16;
constexpr const char* noTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";

Variant entryOf(GVariant* dictionary, const char* key) {
    return Variant(g_variant_lookup_value(dictionary, key, nullptr));
}

std::string textOf(GVariant* dictionary, const char* key) {
    return textIn(entryOf(dictionary, key).get()).value_or(std::string());
}

/// The artists are a list; some players tell only one text.
std::string artistsOf(GVariant* dictionary) {
    const Variant artists = entryOf(dictionary, "xesam:artist");
    if (!artists || !g_variant_is_of_type(artists.get(), G_VARIANT_TYPE_ARRAY))
        return textIn(artists.get()).value_or(std::string());
    std::string joined;
    const gsize count = std::min(g_variant_n_children(artists.get()), mostArtists);
    for (gsize index = 0; index < count; ++index) {
        const Variant child(g_variant_get_child_value(artists.get(), index));
        const std::string name = textIn(child.get()).value_or(std::string());
        if (!name.empty())
            joined += joined.empty() ? name : ", " + name;
    }
    return cleanText(joined);
}

std::string trackIdOf(GVariant* dictionary) {
    const std::string identifier = textOf(dictionary, "mpris:trackid");
    return g_variant_is_object_path(identifier.c_str()) ? identifier : std::string();
}

double durationOf(GVariant* dictionary) {
    const double seconds = numberIn(entryOf(dictionary, "mpris:length").get()).value_or(0) / 1e6;
    return seconds > 0 && seconds <= longestDuration ? seconds : 0;
}

} // namespace

std::optional<double> numberIn(GVariant* value) {
    if (!value)
        return std::nullopt;
    double number = 0;
    switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_BYTE:
        number = g_variant_get_byte(value);
        break;
    case G_VARIANT_CLASS_INT16:
        number = g_variant_get_int16(value);
        break;
    case G_VARIANT_CLASS_UINT16:
        number = g_variant_get_uint16(value);
        break;
    case G_VARIANT_CLASS_INT32:
        number = g_variant_get_int32(value);
        break;
    case G_VARIANT_CLASS_UINT32:
        number = g_variant_get_uint32(value);
        break;
    case G_VARIANT_CLASS_INT64:
        number = static_cast<double>(g_variant_get_int64(value));
        break;
    case G_VARIANT_CLASS_UINT64:
        number = static_cast<double>(g_variant_get_uint64(value));
        break;
    case G_VARIANT_CLASS_DOUBLE:
        number = g_variant_get_double(value);
        break;
    default:
        return std::nullopt;
    }
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<std::string> textIn(GVariant* value) {
    if (!value || (!g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) &&
                   !g_variant_is_of_type(value, G_VARIANT_TYPE_OBJECT_PATH)))
        return std::nullopt;
    return cleanText(g_variant_get_string(value, nullptr));
}

TrackMetadata TrackMetadata::parse(GVariant* metadata) {
    TrackMetadata track;
    if (!metadata || !g_variant_is_of_type(metadata, G_VARIANT_TYPE_VARDICT))
        return track;
    track.trackId = trackIdOf(metadata);
    if (track.trackId == noTrack)
        return {};
    track.title = textOf(metadata, "xesam:title");
    track.artist = artistsOf(metadata);
    track.album = textOf(metadata, "xesam:album");
    track.duration = durationOf(metadata);
    track.url = textOf(metadata, "xesam:url");
    return track;
}

bool TrackMetadata::isOther(const TrackMetadata& that) const {
    // Some players have one identifier for all their tracks, some have none.
    return trackId != that.trackId || url != that.url || (url.empty() && title != that.title);
}

} // namespace playback

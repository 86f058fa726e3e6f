// What other players say of their tracks, made of any bytes: what is taken from it is fit to be shown.
//
// An entry is a byte that chooses the key, one that chooses the type, one for the length, and so many bytes.
#include "hosts/media/mpris/TrackMetadata.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace {

constexpr std::array<const char*, 6> keys = {"mpris:trackid", "mpris:length", "xesam:title",
                                             "xesam:artist",  "xesam:album",  "xesam:url"};
constexpr std::array<const char*, 12> types = {"s", "o",  "x",  "t",     "d", "i",
                                               "y", "as", "av", "a{sv}", "b", "v"};

GVariant* valueOf(const char* type, std::span<const std::uint8_t> bytes) {
    GBytes* kept = g_bytes_new(bytes.data(), bytes.size());
    GVariant* value = g_variant_new_from_bytes(G_VARIANT_TYPE(type), kept, FALSE);
    g_bytes_unref(kept);
    return value;
}

GVariant* dictionaryOf(std::span<const std::uint8_t> bytes) {
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_VARDICT);
    while (bytes.size() >= 3) {
        const char* key = keys[bytes[0] % keys.size()];
        const char* type = types[bytes[1] % types.size()];
        const std::size_t length = std::min<std::size_t>(bytes[2], bytes.size() - 3);
        g_variant_builder_add(&builder, "{sv}", key, valueOf(type, bytes.subspan(3, length)));
        bytes = bytes.subspan(3 + length);
    }
    return g_variant_builder_end(&builder);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const playback::Variant metadata = playback::adopt(dictionaryOf({data, size}));
    const auto track = playback::TrackMetadata::parse(metadata.get());
    for (const auto* text : {&track.title, &track.artist, &track.album, &track.url, &track.trackId})
        if (text->size() > 4096 || !g_utf8_validate(text->data(), static_cast<gssize>(text->size()), nullptr))
            std::abort();
    if (!(track.duration >= 0))
        std::abort();
    return 0;
}

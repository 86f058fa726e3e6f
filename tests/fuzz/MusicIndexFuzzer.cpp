// Index files of any bytes, with a checksum that fits: nothing crashes, and what is read is written the same.
#include "hosts/media/library/LibraryIndex.h"

#include <cstdlib>
#include <cstring>

#include <glib.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> bytes = playback::LibraryIndex::encode({});
    char* checksum = g_compute_checksum_for_data(G_CHECKSUM_SHA1, data, size);
    std::memcpy(bytes.data() + bytes.size() - std::strlen(checksum), checksum, std::strlen(checksum));
    g_free(checksum);
    bytes.insert(bytes.end(), data, data + size);
    const auto entries = playback::LibraryIndex::decode(bytes);
    if (entries &&
        playback::LibraryIndex::decode(playback::LibraryIndex::encode(*entries))->size() != entries->size())
        std::abort();
    return 0;
}

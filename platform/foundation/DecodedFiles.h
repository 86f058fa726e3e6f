// Remembers what the bytes of small property-list files decoded to.
//
// A file that is read many times a second is still read each time; only when its bytes are the very ones that
// were decoded last is the decoding spared. A change is thus always seen, whoever made it and however. Any
// thread.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace foundation {

class DecodedFiles {
public:
    /// Larger files are decoded each time rather than held in memory.
    static constexpr std::size_t largestFile = 1024 * 1024; // bytes
    static constexpr std::size_t mostFiles = 16;

    using Dictionary = std::shared_ptr<const PropertyList::Dictionary>;

    /// What `bytes`, read from `path`, hold; null when that is no dictionary.
    Dictionary decode(const std::string& path, std::vector<std::uint8_t> bytes);

private:
    struct Entry {
        std::vector<std::uint8_t> bytes;
        Dictionary dictionary;
    };
    std::mutex mutex_;
    std::unordered_map<std::string, Entry> entries_;
};

} // namespace foundation

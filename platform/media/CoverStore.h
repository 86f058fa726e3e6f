// The library's covers that were asked for lately, decoded and reduced to the sizes that were asked for.
//
// Bounded: the covers that were used longest ago go first. A cover that cannot be read is not read again
// until it has gone. Main thread only; reading and decoding may happen on another.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/rendering/Image.h"

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <vector>

namespace media {

class CoverStore {
public:
    using Picture = std::shared_ptr<const toolkit::Image>;
    using Ready = std::function<void(Picture)>;

    /// A cover in a size: points, and pixels a point.
    struct Request {
        std::int64_t persistentID;
        toolkit::Size size;
        double scale;
    };

    /// The process's one; never torn down.
    static CoverStore& shared();

    /// Reads and decodes a cover that is not there. Null for one that cannot be read.
    Picture cover(const Request& request);
    /// Calls `ready` once on the main thread, at once when the cover is there, as long as the handle lives.
    foundation::Handle load(const Request& request, Ready ready);
    /// Forgets the covers that nobody else holds: those that nothing shows.
    void forgetUnused();
    /// Forgets everything, as when the library has changed.
    void clear();

    /// Pixels of all covers together, above which the oldest go.
    static constexpr std::int64_t capacity = 24'000'000;

private:
    /// Song, and the pixels that the cover has to fill.
    struct Key {
        std::int64_t persistentID;
        int width;
        int height;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    struct Entry {
        Picture picture;
        std::list<Key>::iterator use;
    };
    static Key keyOf(const Request& request);
    const Picture* find(const Key& key);
    void keep(const Key& key, Picture picture);
    void forget(std::map<Key, Entry>::iterator entry);
    void arrived(const Key& key, const Picture& picture, unsigned generation);

    std::map<Key, Entry> entries_;
    std::list<Key> uses_; // the latest first
    std::int64_t pixels_ = 0;
    std::map<Key, std::vector<std::shared_ptr<Ready>>> waiting_;
    unsigned generation_ = 0; // counts the calls of clear()
};

} // namespace media

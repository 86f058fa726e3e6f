// A song's cover: a picture at hand, or one of the library that is read and decoded when it is asked for.
//
// Main thread only. Covers of the library are kept, reduced to the sizes that they were asked for, in one
// bounded store for the process.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/runtime/Class.h"
#include "platform/toolkit/rendering/Image.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace media {

class MPMediaItemArtwork : public runtime::Object {
    RUNTIME_CLASS()
public:
    using Picture = std::shared_ptr<const toolkit::Image>;

    /// initWithImage:
    explicit MPMediaItemArtwork(Picture image) : image_(std::move(image)) {}
    /// The cover of the library's song with that persistent identifier.
    explicit MPMediaItemArtwork(std::int64_t persistentID) : persistentID_(persistentID) {}

    /// imageWithSize: the cover fit for `size` points on the main screen: no larger than is needed to cover
    /// it. Reads and decodes a library's cover that is not at hand now, which can take longer than a frame.
    /// Null for a cover that cannot be read.
    Picture imageWithSize(toolkit::Size size) const;
    /// The same, decoded away from the main thread. Calls `ready` once, at once when the cover is at hand,
    /// but not after the handle was let go of.
    foundation::Handle loadImage(toolkit::Size size, std::function<void(Picture)> ready) const;

    /// The picture at hand; null for a cover of the library.
    const Picture& image() const { return image_; }

private:
    Picture image_;
    std::int64_t persistentID_ = 0;
};

} // namespace media

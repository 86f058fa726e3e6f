// A song's cover.
#pragma once

#include "platform/runtime/Class.h"
#include "platform/toolkit/rendering/Image.h"

namespace media {

class MPMediaItemArtwork : public runtime::Object {
    RUNTIME_CLASS()
public:
    explicit MPMediaItemArtwork(std::shared_ptr<const toolkit::Image> image) : image_(std::move(image)) {}

    const std::shared_ptr<const toolkit::Image>& image() const { return image_; }

private:
    std::shared_ptr<const toolkit::Image> image_;
};

} // namespace media

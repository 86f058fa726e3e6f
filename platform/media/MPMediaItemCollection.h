// A few songs in an order, to be given to a player.
#pragma once

#include "platform/media/MPMediaItem.h"

namespace media {

class MPMediaItemCollection : public runtime::Object {
    RUNTIME_CLASS()
public:
    /// initWithItems:
    explicit MPMediaItemCollection(MediaItems items) : items_(std::move(items)) {}

    const MediaItems& items() const { return items_; }

private:
    MediaItems items_;
};

} // namespace media

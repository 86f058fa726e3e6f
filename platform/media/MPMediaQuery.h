// A question to the media library.
#pragma once

#include "platform/media/MPMediaItem.h"

namespace media {

class MPMediaQuery : public runtime::Object {
    RUNTIME_CLASS()
public:
    /// Every song of the library.
    static std::shared_ptr<MPMediaQuery> songsQuery();

    /// The answer as the library now stands, in the library's order; never null, empty without a library.
    SharedMediaItems items() const;
};

} // namespace media

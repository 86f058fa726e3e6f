// An open lyrics service on the network that speaks LRCLIB's language: GET
// /api/get?track_name=…&artist_name=… answers an object with "plainLyrics", or 404.
//
// Any thread; a call waits for the answer, at most 20 seconds.
#pragma once

#include "hosts/lyrics-gateway/LyricAnswer.h"
#include "platform/foundation/URLSession.h"

#include <string>

namespace gateway {

class LyricService {
public:
    /// `address` is a base address without a slash at its end.
    explicit LyricService(std::string address);

    LyricAnswer find(const std::string& artist, const std::string& title) const;

private:
    std::string address_;
    foundation::URLSession session_;
};

} // namespace gateway

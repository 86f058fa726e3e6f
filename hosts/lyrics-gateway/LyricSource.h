// Where lyrics come from: the files, else what the service is remembered to have said, else the service.
//
// Files are looked at each time, so that one that is added counts at once. What failed is not remembered. Any
// thread.
#pragma once

#include "hosts/lyrics-gateway/LyricAnswer.h"
#include "hosts/lyrics-gateway/LyricFiles.h"
#include "hosts/lyrics-gateway/LyricService.h"

#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace gateway {

class LyricSource {
public:
    /// Without a service there are the files alone.
    LyricSource(LyricFiles files, std::optional<LyricService> service)
        : files_(std::move(files)), service_(std::move(service)) {}

    LyricAnswer find(const std::string& artist, const std::string& title);

    static constexpr std::size_t mostRemembered = 500;

private:
    using Song = std::pair<std::string, std::string>;
    std::optional<LyricAnswer> remembered(const Song& song);
    void remember(const Song& song, const LyricAnswer& answer);

    LyricFiles files_;
    std::optional<LyricService> service_;
    std::mutex mutex_;
    std::map<Song, LyricAnswer> answers_;
    std::deque<Song> order_; // oldest first
};

} // namespace gateway

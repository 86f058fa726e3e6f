#include "hosts/lyrics-gateway/LyricSource.h"

namespace gateway {

LyricAnswer LyricSource::find(const std::string& artist, const std::string& title) {
    if (auto text = files_.find(artist, title))
        return {LyricAnswer::Kind::Text, std::move(*text)};
    if (!service_)
        return {LyricAnswer::Kind::None};
    const Song song(artist, title);
    if (auto answer = remembered(song))
        return *answer;
    LyricAnswer answer = service_->find(artist, title);
    if (answer.kind != LyricAnswer::Kind::Failed)
        remember(song, answer);
    return answer;
}

std::optional<LyricAnswer> LyricSource::remembered(const Song& song) {
    std::lock_guard lock(mutex_);
    const auto found = answers_.find(song);
    return found == answers_.end() ? std::nullopt : std::optional(found->second);
}

void LyricSource::remember(const Song& song, const LyricAnswer& answer) {
    std::lock_guard lock(mutex_);
    if (!answers_.insert_or_assign(song, answer).second)
        return;
    order_.push_back(song);
    if (order_.size() > mostRemembered) {
        answers_.erase(order_.front());
        order_.pop_front();
    }
}

} // namespace gateway

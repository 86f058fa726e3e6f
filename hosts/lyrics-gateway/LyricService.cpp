#include "hosts/lyrics-gateway/LyricService.h"

#include "hosts/lyrics-gateway/LyricText.h"
#include "platform/foundation/JsonCoding.h"
#include "platform/foundation/PercentEncoding.h"

namespace gateway {

namespace {

using Kind = LyricAnswer::Kind;

constexpr int statusOK = 200, statusNotFound = 404;
constexpr std::size_t largestAnswer = 1024 * 1024; // bytes
constexpr const char* userAgent = "vela-lyrics-gateway/" VELA_VERSION " (lyrics for a phone's music panel)";

std::string encoded(const std::string& text) {
    return foundation::percentEncoded(text, foundation::unreservedPunctuation);
}

LyricAnswer answerOf(const foundation::URLAnswer& answer) {
    if (answer.error)
        return {Kind::Failed};
    if (answer.response.statusCode == statusNotFound)
        return {Kind::None};
    const auto song = foundation::decodeJson(answer.body);
    if (answer.response.statusCode != statusOK || !song || !song->dictionary())
        return {Kind::Failed};
    // Music without words has a null there.
    const std::string* lyric = (*song)["plainLyrics"].string();
    std::string text = lyric ? tidied(*lyric) : std::string();
    return text.empty() ? LyricAnswer{Kind::None} : LyricAnswer{Kind::Text, std::move(text)};
}

} // namespace

LyricService::LyricService(std::string address)
    : address_(std::move(address)),
      session_({.timeoutIntervalForRequest = 10,
                .timeoutIntervalForResource = 20,
                .HTTPMaximumConnectionsPerHost = 2,
                .HTTPAdditionalHeaders = {{"User-Agent", userAgent}, {"Accept", "application/json"}}}) {}

LyricAnswer LyricService::find(const std::string& artist, const std::string& title) const {
    return answerOf(session_.loadSynchronously(
        {.url = address_ + "/api/get?track_name=" + encoded(title) + "&artist_name=" + encoded(artist),
         .maximumBytes = largestAnswer}));
}

} // namespace gateway

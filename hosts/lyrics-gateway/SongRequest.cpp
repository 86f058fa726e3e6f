#include "hosts/lyrics-gateway/SongRequest.h"

#include "platform/foundation/PercentEncoding.h"
#include "platform/foundation/Utf8Validation.h"

namespace gateway {

namespace {

bool isName(const std::string& text) {
    return !text.empty() && text.size() <= SongRequest::longestName && foundation::isValidUtf8(text);
}

bool take(std::string_view& text, std::string_view part) {
    if (!text.starts_with(part))
        return false;
    text.remove_prefix(part.size());
    return true;
}

std::optional<SongRequest> split(SongRequest::Form form, std::string_view names, std::size_t at,
                                 std::size_t separatorLength) {
    if (at == std::string_view::npos)
        return std::nullopt;
    SongRequest request{form, foundation::percentDecoded(names.substr(0, at)),
                        foundation::percentDecoded(names.substr(at + separatorLength))};
    return isName(request.artist) && isName(request.title) ? std::optional(request) : std::nullopt;
}

} // namespace

std::optional<SongRequest> SongRequest::parse(std::string_view target) {
    if (!take(target, "/wiki/"))
        return std::nullopt;
    constexpr std::string_view songKey = "&song=";
    if (take(target, "?artist="))
        return split(Form::PlainText, target, target.rfind(songKey), songKey.size());
    return split(Form::Page, target, target.find(':'), 1);
}

} // namespace gateway

// The covers of velaWebManager.
#include "platform/foundation/FileManager.h"
#include "platform/foundation/JsonCoding.h"
#include "platform/foundation/TextReplacement.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/nowplaying/velaWebManager.h"
#include "vela/stores/Paths.h"
#include "vela/stores/ProductConfiguration.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::FileManager;
using foundation::PropertyList;
using foundation::URLAnswer;
using foundation::URLSession;
using toolkit::Image;

namespace vela {

namespace {

constexpr int statusOK = 200;
/// Far more than the catalogue's answer about one song has, and than one of its covers.
constexpr std::size_t largestAnswer = 1024 * 1024;     // bytes
constexpr std::size_t largestCover = 16 * 1024 * 1024; // bytes

VelaSettingsManager& store() {
    return VelaSettingsManager::sharedInstance();
}

/// One look-up: the song, the picture that it ends with so far, and who waits for it.
struct CoverSearch {
    std::string title;
    std::string artist;
    std::shared_ptr<const Image> image;
    velaWebManager::ArtworkCompletion completion;

    /// Also the default picture is kept, so that the song is not searched for again.
    void finish() const {
        store().addArtWork(image, title, artist);
        completion(image);
    }
};

std::shared_ptr<const Image> defaultArtwork() {
    return toolkit::loadImageNamed(paths::defaultArtwork, toolkit::UIScreen::mainScreen().scale());
}

std::string searchAddress(const std::string& title, const std::string& artist) {
    return ProductConfiguration::shared().catalogue() +
           "/search?term=" + velaWebManager::encodeString(title) + "+" +
           velaWebManager::encodeString(artist) + "&limit=1&entity=song";
}

/// The catalogue's one result for a song; nothing when the search failed or did not end with exactly one.
std::optional<PropertyList> onlyResult(const URLAnswer& answer) {
    if (answer.error || answer.response.statusCode != statusOK)
        return std::nullopt;
    const auto found = foundation::decodeJson(answer.body);
    if (!found || !found->dictionary() || (*found)["resultCount"].integerValue() != 1)
        return std::nullopt;
    const PropertyList::Array* results = (*found)["results"].array();
    return results && !results->empty() ? results->front() : PropertyList();
}

/// Where the cover lies in the size that the strip shows; nil for a result without a cover.
PropertyList coverAddress(const PropertyList& result) {
    const std::string* address = result["artworkUrl100"].string();
    return address ? PropertyList(foundation::replacingOccurrences(*address, "100x100", "500x500"))
                   : PropertyList();
}

std::shared_ptr<const Image> imageFromFile(const std::string& location) {
    const auto bytes = FileManager::shared().read(location, largestCover);
    return bytes ? toolkit::decodeImage(*bytes, 1) : nullptr;
}

void finishSearch(const URLAnswer& answer, const std::shared_ptr<CoverSearch>& search) {
    // Only here, away from the main thread, since it takes some milliseconds to decode.
    search->image = defaultArtwork();
    const auto result = onlyResult(answer);
    if (!result)
        return search->finish();
    velaWebManager::sharedInstance().getFileFromUrl(
        coverAddress(*result), [search](const std::string& location, const auto&, const auto& error) {
            if (!error)
                search->image = imageFromFile(location);
            search->finish();
        });
}

} // namespace

void velaWebManager::getArtworkForSongName(const std::string& title, const std::string& artist,
                                           ArtworkCompletion completion) {
    if (const auto stored = store().getImageForSongName(title, artist))
        return completion(stored);
    auto search = std::make_shared<CoverSearch>(CoverSearch{title, artist, nullptr, std::move(completion)});
    const URLSession session({.timeoutIntervalForRequest = 30,
                              .timeoutIntervalForResource = 60,
                              .HTTPMaximumConnectionsPerHost = 1,
                              .HTTPAdditionalHeaders = {{"Accept", "application/json"}}});
    session
        .dataTask({.url = searchAddress(title, artist), .maximumBytes = largestAnswer},
                  [search](const URLAnswer& answer) { finishSearch(answer, search); })
        .resume();
}

void velaWebManager::getFileFromUrl(const PropertyList& address,
                                    URLSession::DownloadCompletion completionHandler) {
    const std::string* url = address.string();
    if (!url || url->empty())
        return;
    const URLSession session({.HTTPMaximumConnectionsPerHost = 1});
    session.downloadTask({.url = *url, .maximumBytes = largestCover}, std::move(completionHandler)).resume();
}

} // namespace vela

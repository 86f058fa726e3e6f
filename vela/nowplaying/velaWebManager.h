// Fetches lyrics and covers: from the stores first, else from the services that ProductConfiguration names,
// whose answers the stores then keep.
//
// The one instance is never destroyed. All lookups begin on the main thread. Completions come on any thread,
// perhaps before the call returns, and whoever touches views in them changes to the main thread. Nothing is
// reported as an error: a lyric comes with a LyricResult, a cover ends as the default picture or as null.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/URLSession.h"
#include "platform/web/UIWebView.h"
#include "vela/nowplaying/LyricResult.h"

#include <functional>
#include <memory>
#include <string>

namespace media {
class MPMediaItem;
}
namespace toolkit {
class Image;
}

namespace vela {

class velaWebManager : public web::UIWebViewDelegate {
public:
    static velaWebManager& sharedInstance();

    velaWebManager(const velaWebManager&) = delete;
    velaWebManager& operator=(const velaWebManager&) = delete;

    /// Percent-encodes everything but letters, digits and "-._~!$&'()*+,;=:@/?", so that "&" and "?" in a
    /// title stay as they are.
    static std::string encodeString(const std::string& text);

    // Lyrics.

    using LyricCompletion = std::function<void(LyricResult, const std::string& text)>;

    /// From the lyric store or the song's page of the wiki. Only one page is asked for at a time: a newer
    /// request takes the place of the one before, whose completion is then never called.
    void getLyricTextForSongName(const std::string& title, const std::string& artist,
                                 LyricCompletion completion);
    /// From the library item itself, the lyric store or the wiki's plain answer.
    void getLyricText(const std::shared_ptr<media::MPMediaItem>& item, LyricCompletion completion);

    void webViewDidStartLoad(web::UIWebView& webView) override;
    void webViewDidFinishLoad(web::UIWebView& webView) override;
    void webView(web::UIWebView& webView, const foundation::URLError& didFailLoadWithError) override;

    // Covers.

    using ArtworkCompletion = std::function<void(const std::shared_ptr<const toolkit::Image>&)>;

    /// From the artwork store or the catalogue; the default picture when there is none. The completion is
    /// never called for a search result that names no cover.
    void getArtworkForSongName(const std::string& title, const std::string& artist,
                               ArtworkCompletion completion);
    /// Downloads one file to a temporary place, where it stays until the handler returns. Nothing at all
    /// happens when `address` is no text or empty.
    void getFileFromUrl(const foundation::PropertyList& address,
                        foundation::URLSession::DownloadCompletion completionHandler);

private:
    /// The one page request that is under way, or was the last.
    struct Save {
        std::string name;
        std::string artist;
        LyricCompletion handler;
    };

    velaWebManager() = default;

    std::shared_ptr<web::UIWebView> loader_;
    Save save_;
};

} // namespace vela

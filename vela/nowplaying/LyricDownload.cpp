// The lyrics of velaWebManager.
#include "platform/foundation/Utf8Validation.h"
#include "platform/media/MPMediaItem.h"
#include "vela/nowplaying/LyricMarkup.h"
#include "vela/nowplaying/velaWebManager.h"
#include "vela/stores/ProductConfiguration.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::PropertyList;
using foundation::URLAnswer;
using media::MPMediaItem;

namespace vela {

namespace {

constexpr const char* silenceAlerts = "window.alert=null;";
constexpr const char* lyricBox = "document.getElementsByClassName('lyricbox')[0].innerHTML;";
constexpr int statusOK = 200;

VelaSettingsManager& store() {
    return VelaSettingsManager::sharedInstance();
}

std::string wiki() {
    return ProductConfiguration::shared().lyrics() + "/wiki";
}

std::string textProperty(const MPMediaItem& item, const char* name) {
    const PropertyList value = item.valueForProperty(name);
    return value.string() ? *value.string() : std::string();
}

/// The bytes as a text, empty when they are none.
std::string utf8Text(const std::vector<std::uint8_t>& bytes) {
    std::string text(bytes.begin(), bytes.end());
    return foundation::isValidUtf8(text) ? text : std::string();
}

void finishItem(const URLAnswer& answer, const std::shared_ptr<MPMediaItem>& item,
                const velaWebManager::LyricCompletion& completion) {
    if (answer.error || answer.response.statusCode != statusOK)
        return completion(LyricResult::TransferFailed, {});
    const std::string text = utf8Text(answer.body);
    completion(text.empty() ? LyricResult::NoLyric : LyricResult::TextPresent, text);
    store().addLyric(text, item);
}

} // namespace

void velaWebManager::getLyricTextForSongName(const std::string& title, const std::string& artist,
                                             LyricCompletion completion) {
    // A stored "No lyric" is an answer too, so that the wiki is not asked again.
    const auto stored = store().getLyricForSongName(title, artist);
    if (stored && !stored->empty())
        return completion(LyricResult::TextPresent, *stored);
    if (artist.empty() || title.empty())
        return completion(LyricResult::SongNotUsable, {});
    if (!loader_) {
        loader_ = std::make_shared<web::UIWebView>();
        loader_->setDelegate(this);
    }
    save_ = {title, artist, std::move(completion)};
    loader_->loadRequest({.url = wiki() + "/" + encodeString(artist) + ":" + encodeString(title)});
}

void velaWebManager::webViewDidStartLoad(web::UIWebView& webView) {
    webView.stringByEvaluatingJavaScriptFromString(silenceAlerts);
}

void velaWebManager::webViewDidFinishLoad(web::UIWebView& webView) {
    webView.stringByEvaluatingJavaScriptFromString(silenceAlerts);
    const Save song = save_; // the handler may ask for another one
    std::string markup = webView.stringByEvaluatingJavaScriptFromString(lyricBox);
    // A box of another form is no lyric now, but kept as it is: it is shown when the song plays again.
    const auto text = textOfLyricMarkup(markup);
    if (text && !text->empty())
        song.handler(LyricResult::TextPresent, *text);
    else
        song.handler(LyricResult::NoLyric, {});
    store().addLyric(text.value_or(markup), song.name, song.artist);
    webView.stopLoading();
}

void velaWebManager::webView(web::UIWebView&, const foundation::URLError& didFailLoadWithError) {
    if (didFailLoadWithError.code == foundation::URLErrorCode::Cancelled)
        return;
    const Save song = save_;
    song.handler(LyricResult::NoLyric, {});
    store().addLyric({}, song.name, song.artist);
}

void velaWebManager::getLyricText(const std::shared_ptr<MPMediaItem>& item, LyricCompletion completion) {
    if (!item)
        return completion(LyricResult::SongNotUsable, {});
    const PropertyList own = item->valueForProperty(media::MPMediaItemPropertyLyrics);
    if (const std::string* lyric = own.string()) {
        completion(LyricResult::TextPresent, *lyric);
        return store().addLyric(*lyric, item);
    }
    const auto stored = store().getLyricForSong(item);
    if (stored && !stored->empty())
        return completion(LyricResult::TextPresent, *stored);
    const std::string title = textProperty(*item, media::MPMediaItemPropertyTitle);
    const std::string artist = textProperty(*item, media::MPMediaItemPropertyArtist);
    if (title.empty() || artist.empty())
        return completion(LyricResult::SongNotUsable, {});
    const foundation::URLSession session({.timeoutIntervalForRequest = 30,
                                          .timeoutIntervalForResource = 60,
                                          .HTTPMaximumConnectionsPerHost = 1});
    session
        .dataTask({.url = wiki() + "/?artist=" + encodeString(artist) + "&song=" + encodeString(title),
                   .maximumBytes = web::UIWebView::largestPage},
                  [item, completion = std::move(completion)](const URLAnswer& answer) {
                      finishItem(answer, item, completion);
                  })
        .resume();
}

} // namespace vela

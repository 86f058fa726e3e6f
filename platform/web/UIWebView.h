// The off-screen half of a web view: loads a page and answers questions about it.
//
// A page is read, never run: there is no script engine, so its scripts, alerts and further resources do not
// exist. Main thread; the delegate is told there, in later turns than the one that asked.
#pragma once

#include "platform/foundation/URLError.h"
#include "platform/foundation/URLRequest.h"
#include "platform/foundation/URLSession.h"
#include "platform/runtime/Object.h"

#include <memory>
#include <string>

namespace web {

class HTMLDocument;
class UIWebView;

class UIWebViewDelegate {
public:
    virtual ~UIWebViewDelegate() = default;
    virtual void webViewDidStartLoad(UIWebView& webView) = 0;
    /// Also for an error page of the server's.
    virtual void webViewDidFinishLoad(UIWebView& webView) = 0;
    /// webView:didFailLoadWithError: is told URLErrorCode::Cancelled of a load that a newer one, or
    /// stopLoading, has ended.
    virtual void webView(UIWebView& webView, const foundation::URLError& didFailLoadWithError) = 0;
};

class UIWebView : public runtime::Object {
    RUNTIME_CLASS()
public:
    UIWebView();
    ~UIWebView() override;

    /// The caller keeps the delegate alive for as long as the view lives, or sets another.
    void setDelegate(UIWebViewDelegate* delegate) { delegate_ = delegate; }

    /// Begins to load the page in place of what was there or was being loaded.
    void loadRequest(const foundation::URLRequest& request);
    void stopLoading();
    bool isLoading() const { return loading_; }

    /// Answers the one question that scripts can ask here,
    ///     document.getElementsByClassName('NAME')[INDEX].innerHTML;
    /// and the empty string for every other script and when there is no such element.
    std::string stringByEvaluatingJavaScriptFromString(const std::string& script) const;

    /// The most that a page may have, in bytes.
    static constexpr std::size_t largestPage = 2 * 1024 * 1024;

private:
    void loadEnded(std::uint64_t load, std::shared_ptr<const HTMLDocument> page,
                   const std::optional<foundation::URLError>& error);

    foundation::URLSession session_;
    foundation::URLSessionTask task_;
    UIWebViewDelegate* delegate_ = nullptr;
    std::shared_ptr<const HTMLDocument> page_;
    bool loading_ = false;
    /// The number of the latest load: what an earlier one still reports is no longer about this page.
    std::uint64_t load_ = 0;
};

} // namespace web

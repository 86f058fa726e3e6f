#include "platform/web/UIWebView.h"

#include "platform/foundation/RunLoop.h"
#include "platform/runtime/Class.h"
#include "platform/web/HTMLDocument.h"
#include "platform/web/HTMLText.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

using foundation::RunLoop;
using foundation::URLError;
using foundation::URLErrorCode;

namespace web {

runtime::Class& UIWebView::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIWebView>("UIWebView", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIWebView)

namespace {

/// The question that a script asks, when it is of the one form that is understood.
struct Question {
    std::string className;
    std::size_t index = 0;
};

bool take(std::string_view& text, std::string_view part) {
    if (!text.starts_with(part))
        return false;
    text.remove_prefix(part.size());
    return true;
}

std::optional<Question> questionOf(std::string_view script) {
    Question question;
    if (!take(script, "document.getElementsByClassName('"))
        return std::nullopt;
    question.className = script.substr(0, script.find('\''));
    script.remove_prefix(question.className.size());
    if (!take(script, "')["))
        return std::nullopt;
    const auto number = std::from_chars(script.data(), script.data() + script.size(), question.index);
    script.remove_prefix(static_cast<std::size_t>(number.ptr - script.data()));
    const bool rest = number.ec == std::errc() && (script == "].innerHTML;" || script == "].innerHTML");
    return rest ? std::optional(question) : std::nullopt;
}

std::shared_ptr<const HTMLDocument> pageOf(const foundation::URLAnswer& answer) {
    const auto type = answer.response.headers.find("content-type");
    return HTMLDocument::parse(
        htmlText(answer.body, type == answer.response.headers.end() ? std::string_view() : type->second));
}

} // namespace

UIWebView::UIWebView() = default;

UIWebView::~UIWebView() {
    task_.cancel();
}

void UIWebView::loadRequest(const foundation::URLRequest& request) {
    stopLoading();
    loading_ = true;
    page_ = nullptr;
    const std::uint64_t load = ++load_;
    RunLoop::main().performOnMain([self = runtime::WeakPtr(this), load] {
        if (self && self->load_ == load && self->delegate_)
            self->delegate_->webViewDidStartLoad(*self.get());
    });
    foundation::URLRequest bounded = request;
    bounded.maximumBytes = std::min(bounded.maximumBytes, largestPage);
    task_ = session_.dataTask(
        bounded, [self = runtime::WeakPtr(this), load](const foundation::URLAnswer& answer) {
            // Away from the main thread, for a page may be large.
            auto page = answer.error ? nullptr : pageOf(answer);
            RunLoop::main().performOnMain([self, load, page = std::move(page), error = answer.error] {
                if (self)
                    self->loadEnded(load, page, error);
            });
        });
    task_.resume();
}

void UIWebView::stopLoading() {
    if (!loading_)
        return;
    loading_ = false;
    ++load_;
    task_.cancel();
}

void UIWebView::loadEnded(std::uint64_t load, std::shared_ptr<const HTMLDocument> page,
                          const std::optional<URLError>& error) {
    // A page that came although its load had been given up counts as cancelled all the same.
    const bool givenUp = load != load_;
    if (!givenUp) {
        loading_ = false;
        page_ = std::move(page);
    }
    if (!delegate_)
        return;
    if (givenUp)
        delegate_->webView(*this, {URLErrorCode::Cancelled, "the load was cancelled"});
    else if (error)
        delegate_->webView(*this, *error);
    else
        delegate_->webViewDidFinishLoad(*this);
}

std::string UIWebView::stringByEvaluatingJavaScriptFromString(const std::string& script) const {
    const auto question = questionOf(script);
    if (!question || !page_)
        return {};
    return page_->innerHTMLOfElement(question->className, question->index).value_or(std::string());
}

} // namespace web

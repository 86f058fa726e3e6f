// A sheet in which the user writes a message for a social network. The host shows it and sends the message.
#pragma once

#include "platform/toolkit/views/UIViewController.h"

#include <functional>
#include <string>

namespace preferences {

class SLComposeViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    enum class Result { Cancelled, Done };
    static constexpr const char* serviceTypeTwitter = "com.apple.social.twitter";

    /// Whether a message could be sent: it is handed to a page that some application has to open.
    static bool isAvailableForServiceType(const std::string& serviceType);

    /// composeViewControllerForServiceType:
    explicit SLComposeViewController(std::string serviceType) : serviceType_(std::move(serviceType)) {}

    const std::string& serviceType() const { return serviceType_; }
    const std::string& initialText() const { return initialText_; }
    void setInitialText(std::string text) { initialText_ = std::move(text); }
    void setCompletionHandler(std::function<void(Result)> handler) { completed_ = std::move(handler); }

    /// The host's: the user has sent or given up the message. Does not take the sheet away.
    void complete(Result result);

private:
    std::string serviceType_;
    std::string initialText_;
    std::function<void(Result)> completed_;
};

} // namespace preferences

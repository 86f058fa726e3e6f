// A page that shows a document of the web within the application. The host brings the browser.
#pragma once

#include "platform/toolkit/views/UIViewController.h"

#include <string>

namespace preferences {

class SFSafariViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    explicit SFSafariViewController(std::string url) : url_(std::move(url)) {}

    const std::string& url() const { return url_; }

private:
    std::string url_;
};

} // namespace preferences

#include "platform/preferences/Presentation.h"

#include "platform/preferences/PreferencesPort.h"

namespace preferences {

void presentFromKeyWindow(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                          std::function<void()> completion) {
    if (auto* port = PreferencesPort::current())
        port->present(controller, animated, std::move(completion));
}

void dismiss(toolkit::UIViewController& controller, bool animated, std::function<void()> completion) {
    if (auto* port = PreferencesPort::current())
        port->dismiss(controller, animated, std::move(completion));
}

bool canOpenUrl(const std::string& url) {
    auto* port = PreferencesPort::current();
    return port && port->canOpenUrl(url);
}

void openUrl(const std::string& url) {
    if (auto* port = PreferencesPort::current())
        port->openUrl(url);
}

} // namespace preferences

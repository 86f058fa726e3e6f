#include "hosts/session/homescreen/SessionPresenter.h"

#include "hosts/desktop/Addresses.h"
#include "hosts/device/MessagePage.h"
#include "platform/foundation/RunLoop.h"
#include "platform/preferences/SLComposeViewController.h"

namespace session {

using preferences::SLComposeViewController;

SessionPresenter::SessionPresenter(const bus::Bus& session) : session_(session) {
    setCurrent(this);
}

void SessionPresenter::present(const std::shared_ptr<toolkit::UIViewController>& controller, bool,
                               std::function<void()> completion) {
    const auto sheet = std::dynamic_pointer_cast<SLComposeViewController>(controller);
    if (!sheet)
        return;
    const auto page = device::messagePage(sheet->initialText());
    if (page)
        openUrl(*page);
    const auto result =
        page ? SLComposeViewController::Result::Done : SLComposeViewController::Result::Cancelled;
    foundation::RunLoop::main().performOnMain([sheet, result, completion = std::move(completion)] {
        if (completion)
            completion();
        sheet->complete(result);
    });
}

void SessionPresenter::dismiss(toolkit::UIViewController&, bool, std::function<void()> completion) {
    if (completion)
        completion();
}

bool SessionPresenter::canOpenUrl(const std::string& url) {
    return desktop::canOpenAddress(url);
}

void SessionPresenter::openUrl(const std::string& url) {
    desktop::openAddress(url, session_.connection());
}

std::map<std::string, std::string> SessionPresenter::applications() {
    std::map<std::string, std::string> names;
    for (const auto& entry : entries_.listed())
        names[entry.identifier] = entry.name;
    return names;
}

std::shared_ptr<const toolkit::Image> SessionPresenter::applicationIcon(const std::string&, double) {
    return nullptr;
}

} // namespace session

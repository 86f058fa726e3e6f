// What a host answers for pages and sheets that are presented, the settings application's host for all of it
// and the home screen's for messages to share: the one interface between them and the world.
//
// The host owns its port, sets it before it makes a page and keeps it until the process ends. Every call is
// made on the main thread. While no port is set, nothing is presented or opened and no application is known.
#pragma once

#include "platform/toolkit/rendering/Image.h"
#include "platform/toolkit/views/UIViewController.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace preferences {

class PreferencesPort {
public:
    /// The process's port, or null before a host has set one.
    static PreferencesPort* current();
    static void setCurrent(PreferencesPort* port);

    virtual ~PreferencesPort() = default;

    /// Shows `controller` over everything, as the key window's root view controller would. What it is decides
    /// how: SFSafariViewController a document, AVPlayerViewController a film, SLComposeViewController a sheet
    /// to write in; of any other the view is shown, over the whole window. The host keeps it while it is
    /// shown. `completion`, which may be empty, is called once it stands.
    virtual void present(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                         std::function<void()> completion) = 0;
    /// Takes it away again, with what was presented after it; `completion` is called once it is gone, at once
    /// when it was not shown.
    virtual void dismiss(toolkit::UIViewController& controller, bool animated,
                         std::function<void()> completion) = 0;

    /// Whether some application opens addresses of this kind ("twitter:").
    virtual bool canOpenUrl(const std::string& url) = 0;
    /// Opens the address in the application that is made for it.
    virtual void openUrl(const std::string& url) = 0;

    /// Display names of the installed applications by bundle identifier, hidden services included.
    virtual std::map<std::string, std::string> applications() = 0;
    /// An application's icon, `points` wide and high; the generic icon for one that has none of its own; null
    /// for one that is not installed or whose icon cannot be made.
    virtual std::shared_ptr<const toolkit::Image> applicationIcon(const std::string& bundleIdentifier,
                                                                  double points) = 0;
};

} // namespace preferences

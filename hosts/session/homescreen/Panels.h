// The product's two panels, called and sent away by something else than a finger: a bus, a key.
//
// The panels are called by what a finger would do, a quick pan from the screen's edge, so whatever keeps a
// finger from calling one (a setting, the keyboard, the lock) keeps everybody from it. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/homescreen/SpringBoard.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <functional>
#include <optional>
#include <string>

namespace session {

enum class Side { Left, Right };

/// "left", "right".
std::optional<Side> sideNamed(const std::string& name);
const char* nameOf(Side side);

class Panels {
public:
    struct Callbacks {
        std::function<bool()> mayShow; // whether there is a screen that a panel may lie on now
        std::function<void()> changed; // called after shown() has
    };
    /// The application object outlives this one.
    Panels(homescreen::SpringBoard& springBoard, Callbacks callbacks);

    /// The panel that stands open or is on its way to; nothing while none is, and as soon as one is sent
    /// away.
    std::optional<Side> shown() const { return shown_; }
    /// Calls a panel, after the other one has gone. False when it may not be called now.
    bool show(Side side);
    void dismiss();
    bool toggle(Side side);

private:
    std::optional<Side> look() const;
    void lookAgain();
    std::shared_ptr<toolkit::UIWindow> grabberOf(Side side) const;
    bool pull(Side side);
    void showNext();

    homescreen::SpringBoard& springBoard_;
    Callbacks callbacks_;
    std::optional<Side> shown_;
    std::optional<Side> next_; // waits until the other one has gone
    foundation::Handle hook_;
};

} // namespace session

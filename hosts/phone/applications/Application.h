// An application of the phone: its window, which is made when it is first opened and then kept, and how it
// wants to be shown.
#pragma once

#include "hosts/applications/ApplicationCatalogue.h"
#include "hosts/phone/screens/StatusBar.h"
#include "hosts/phone/screens/SystemWindow.h"
#include "platform/homescreen/SBApplication.h"

namespace phone {

/// What an application is before it runs.
struct ApplicationDescription {
    applications::CatalogueEntry entry;
    unsigned orientations; // a mask of interface orientations
    StatusBarStyle statusBarStyle;
};

class Application : public homescreen::SBApplication {
public:
    explicit Application(ApplicationDescription description);

    const ApplicationDescription& description() const { return description_; }
    /// Null before the application was opened first.
    const std::shared_ptr<SystemWindow>& window() const { return window_; }
    SystemWindow& ensureWindow();

    /// Told when the application has come to the front, or left it; an asleep or locked phone has none in
    /// front.
    virtual void becameActive() {}
    virtual void resignedActive() {}
    /// The keyboard's frame on the screen; its height is 0 while it does not show.
    virtual void keyboardFrameChanged(toolkit::Rect) {}

protected:
    /// The application's content, which fills its window.
    virtual std::shared_ptr<toolkit::UIView> makeView() = 0;

private:
    ApplicationDescription description_;
    std::shared_ptr<SystemWindow> window_;
};

} // namespace phone

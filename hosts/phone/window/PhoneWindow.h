// The window: the picture of the phone, a header bar with what one does most, and a notice now and then.
#pragma once

#include "hosts/phone/window/DeviceView.h"
#include "hosts/phone/window/KeyboardInput.h"
#include "hosts/phone/window/PhoneActions.h"
#include "hosts/phone/window/PointerInput.h"
#include "platform/foundation/GlibRunLoop.h"

namespace phone {

class PhoneWindow {
public:
    /// `closed` is called when the user closes the window or quits.
    PhoneWindow(Phone& phone, foundation::GlibRunLoop& loop, toolkit::Size screenSize,
                std::function<void()> closed);
    PhoneWindow(const PhoneWindow&) = delete;
    PhoneWindow& operator=(const PhoneWindow&) = delete;

    void present();

private:
    std::vector<PhoneAction> actionTable();
    void buildHeader();
    void buildContent();
    void rotate(int quarterTurns);
    void lay(toolkit::DeviceOrientation orientation);
    void orientationChanged();
    void saveScreenshot();
    void notify(const std::string& text);

    Phone& phone_;
    foundation::GlibRunLoop& loop_;
    std::function<void()> closed_;
    std::function<void()> turnDone_;
    GtkWindow* window_;
    DeviceView view_;
    PointerInput pointer_;
    KeyboardInput keyboard_;
    PhoneActions actions_;
    GtkWidget* attitude_ = nullptr; // says that the phone lies flat
    GtkWidget* notice_ = nullptr;
    foundation::Handle noticeTimer_;
    toolkit::DeviceOrientation orientation_ = toolkit::DeviceOrientation::Portrait;
    /// How the phone was held before it was laid flat.
    toolkit::DeviceOrientation held_ = toolkit::DeviceOrientation::Portrait;
    foundation::Handle turnHook_;
};

} // namespace phone

// Hosts one plug-in: loads its bundle, shows its view under a title, and passes the system's events on to it.
//
// Made on the tile's first tap and kept for the tile's life. A plug-in that cannot be loaded leaves just the
// title. Every method of a plug-in is optional and only called when its view responds to it. Cannot be made
// untouchable or be given a background, whatever callers ask. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/views/UILabel.h"

#include <string>

namespace vela {

class velaApplicationView;

class velaAppHostingView : public toolkit::UIView, public toolkit::GestureRecognizerDelegate {
    RUNTIME_CLASS()
public:
    /// initWithIdentifier:
    explicit velaAppHostingView(std::string identifier);

    const std::string& identifier() const { return identifier_; }
    /// The title.
    const std::shared_ptr<toolkit::UILabel>& label() const { return label_; }
    /// The plug-in's own view; null when it could not be loaded.
    const std::shared_ptr<toolkit::UIView>& bundleView() const { return bundleView_; }
    /// The tile that owns this view.
    velaApplicationView* appView() const { return appView_.get(); }
    void setAppView(velaApplicationView* appView);

    void setFrame(toolkit::Rect frame) override;
    void setUserInteractionEnabled(bool enabled) override;
    void setBackgroundColor(std::optional<toolkit::Color> color) override;
    std::optional<toolkit::Color> backgroundColor() const override { return toolkit::Color::clear(); }

    // Passed on to the plug-in.
    void velaInvoked() { forward("velaInvoked"); }
    void velaDismissed() { forward("velaDismissed"); }
    void appWillEnterBackground() { forward("appWillEnterBackground"); }
    void appDidEnterBackground() { forward("appDidEnterBackground"); }
    void appWillBecomeFirstResponder() { forward("appWillBecomeFirstResponder"); }
    void appBecomeActive() { forward("appBecomeActive"); }
    void tapTitleLabel() { forward("tapTitleLabel"); }

    void tapLabel() { tapTitleLabel(); }
    /// Drags the open plug-in shut by its title.
    void handlePan(toolkit::UIGestureRecognizer& recognizer);
    /// Whether that drag is measured along x: newer systems hand over the coordinates of a turned screen.
    bool needsReverse() const;
    void velaNotification(const foundation::Notification& notification);

    bool gestureRecognizerShouldRecognizeSimultaneously(toolkit::UIGestureRecognizer&,
                                                        toolkit::UIGestureRecognizer&) override {
        return false;
    }
    void describeProperties(nlohmann::json& properties) const override;

private:
    void makeTitle();
    void loadPlugIn();
    void showDisabledNotice();
    void layOutContent();
    void forward(runtime::Selector method);
    float fingerPosition(const toolkit::UIPanGestureRecognizer& pan) const;
    float progress() const;
    void follow(float progress);
    void finish(float progress);

    float first_ = 0;
    float last_ = 0;
    runtime::WeakPtr<velaApplicationView> appView_;
    std::string identifier_;
    std::shared_ptr<toolkit::UILabel> label_;
    std::shared_ptr<toolkit::UIView> bundleView_;
    std::shared_ptr<toolkit::UIView> disabledNotice_; // null unless the plug-in is turned off
    foundation::Handle observation_;
};

} // namespace vela

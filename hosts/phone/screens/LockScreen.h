// The lock screen: time and day over the wallpaper; a swipe to the right unlocks.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/screens/StatusBar.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace toolkit {
class UIPanGestureRecognizer;
}

namespace phone {

class LockScreen : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// `unlock` is called for a swipe that goes far enough.
    LockScreen(std::shared_ptr<const toolkit::Image> wallpaper, WallClock& clock,
               std::function<void()> unlock);

    /// Puts what a swipe or an unlocking has moved back in its place.
    void reset();
    /// Moves time and hint off to the right, as an unlocking does.
    void slideAway();

    void layoutSubviews() override;

    static constexpr double unlockFraction = 0.4;   // of the width, for a slow release
    static constexpr double unlockVelocity = 300.0; // points a second

private:
    class SwipeHint;
    void showTime();
    void handlePan(toolkit::UIPanGestureRecognizer& pan);

    WallClock& clock_;
    std::function<void()> unlock_;
    std::shared_ptr<toolkit::UIImageView> wallpaper_;
    std::shared_ptr<StatusBar> statusBar_;
    std::shared_ptr<toolkit::UIView> content_;
    std::shared_ptr<toolkit::UILabel> time_;
    std::shared_ptr<toolkit::UILabel> day_;
    std::shared_ptr<SwipeHint> hint_;
    foundation::Handle minute_;
};

} // namespace phone

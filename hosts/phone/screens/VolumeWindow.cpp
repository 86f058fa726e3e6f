#include "hosts/phone/screens/VolumeWindow.h"

#include "platform/foundation/RunLoop.h"

using namespace toolkit;

namespace phone {

namespace {
constexpr double fadeDuration = 0.3; // seconds
}

runtime::Class& VolumeWindow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<VolumeWindow>("VolumeWindow", &SystemWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(VolumeWindow)

VolumeWindow::VolumeWindow() : SystemWindow(levels::volumeDisplay, WindowSecurity::OverLockScreen) {
    setUserInteractionEnabled(false);
}

void VolumeWindow::present(std::shared_ptr<UIView> view, double delay) {
    if (shown_ && shown_ != view)
        shown_->removeFromSuperview();
    if (shown_ != view)
        addSubview(view);
    shown_ = std::move(view);
    fitScreen();
    setNeedsLayout();
    setAlpha(1);
    if (isHidden())
        setHidden(false);
    dismissal_ = foundation::RunLoop::main().scheduleTimer(delay, false, [this] { fadeAway(); });
}

void VolumeWindow::fadeAway() {
    const runtime::WeakPtr<VolumeWindow> self(this);
    UIView::animate(
        fadeDuration, 0, AnimationCurve::EaseInOut, [this] { setAlpha(0); },
        [self](bool finished) {
            if (finished && self)
                self->setHidden(true);
        });
}

void VolumeWindow::layoutSubviews() {
    if (shown_)
        shown_->setCenter(bounds().center());
}

} // namespace phone

#include "hosts/phone/screens/LockScreen.h"

#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"

#include <cmath>

using namespace toolkit;

namespace phone {

namespace {

constexpr double returnDuration = 0.25; // seconds, of a swipe that was let go too early
const std::string hintText = "slide to unlock";

} // namespace

/// A line of type that says what to do, with an arrow before it.
class LockScreen::SwipeHint : public UIView {
public:
    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override {
        TextStyle style;
        style.font = Font::system(23, FontWeight::Light);
        const TextLayout layout(hintText, style, -1);
        const Size size = layout.size();
        constexpr double arrow = 18;
        const double left = (bounds.width - size.width - arrow) / 2, middle = bounds.height / 2;
        const Color ink = Color::white(1, 0.82);
        canvas.strokePath(
            Path().moveTo({left, middle - 7}).lineTo({left + 7, middle}).lineTo({left, middle + 7}), 1.6,
            LineCap::Round, ink);
        canvas.drawText(layout, {left + arrow, middle - size.height / 2}, ink);
    }
};

runtime::Class& LockScreen::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<LockScreen>("LockScreen", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(LockScreen)

LockScreen::LockScreen(std::shared_ptr<const Image> wallpaper, WallClock& clock, std::function<void()> unlock)
    : clock_(clock),
      unlock_(std::move(unlock)),
      wallpaper_(std::make_shared<UIImageView>(Rect(), std::move(wallpaper))),
      statusBar_(std::make_shared<StatusBar>(clock)),
      content_(std::make_shared<UIView>()),
      time_(makeLabel("", Font::system(84, FontWeight::Thin), Color::white(1), TextAlignment::Center)),
      day_(makeLabel("", Font::system(20), Color::white(1), TextAlignment::Center)),
      hint_(std::make_shared<SwipeHint>()) {
    setBackgroundColor(Color::black());
    setClipsToBounds(true);
    wallpaper_->setContentMode(ContentGravity::AspectFill);
    addSubview(wallpaper_);
    addSubview(content_);
    addSubview(statusBar_);
    statusBar_->setTimeShown(false);
    content_->addSubview(time_);
    content_->addSubview(day_);
    content_->addSubview(hint_);
    hint_->setUserInteractionEnabled(false);
    auto pan = std::make_shared<UIPanGestureRecognizer>(nullptr, runtime::Selector(""));
    pan->addHandler([this](UIGestureRecognizer& recognizer) {
        handlePan(static_cast<UIPanGestureRecognizer&>(recognizer));
    });
    addGestureRecognizer(pan);
    showTime();
    minute_ = clock_.addMinuteObserver([this] { showTime(); });
}

void LockScreen::showTime() {
    const std::tm now = clock_.local();
    time_->setText(WallClock::timeText(now));
    const std::string day = WallClock::weekdayText(now) + ", " + WallClock::dayText(now);
    if (day != day_->text())
        day_->setText(day);
}

void LockScreen::reset() {
    content_->setTransform({});
}

void LockScreen::slideAway() {
    content_->setTransform(AffineTransform::translation(bounds().width, 0));
}

void LockScreen::handlePan(UIPanGestureRecognizer& pan) {
    const double moved = std::max(0.0, pan.translationInView(this).x);
    switch (pan.state()) {
    case GestureState::Began:
    case GestureState::Changed:
        return content_->setTransform(AffineTransform::translation(moved, 0));
    case GestureState::Ended:
        if (pan.velocityInView(this).x >= unlockVelocity || moved >= bounds().width * unlockFraction)
            return unlock_();
        [[fallthrough]];
    default:
        UIView::animate(returnDuration, 0, AnimationCurve::EaseOut, [this] { reset(); });
    }
}

void LockScreen::layoutSubviews() {
    const Size size = bounds().size();
    wallpaper_->setFrame({0, 0, size.width, size.height});
    statusBar_->setFrame({0, 0, size.width, StatusBar::height});
    content_->setBounds({0, 0, size.width, size.height});
    content_->setCenter({size.width / 2, size.height / 2});
    const double scale = std::clamp(std::min(size.width, size.height) / 375, 0.8, 1.35);
    time_->setFont(Font::system(std::round(84 * scale), FontWeight::Thin));
    day_->setFont(Font::system(std::round(20 * scale)));
    const double timeHeight = time_->sizeThatFits({size.width, 0}).height;
    const double dayHeight = day_->sizeThatFits({size.width, 0}).height;
    const double top = std::max(24.0, size.height * 0.075);
    time_->setFrame({0, top, size.width, timeHeight});
    day_->setFrame({0, top + timeHeight - 4, size.width, dayHeight});
    hint_->setFrame({0, size.height - 96, size.width, 44});
}

} // namespace phone

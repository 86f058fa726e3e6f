#include "vela/nowplaying/M13ProgressViewRing.h"

#include "vela/nowplaying/ProgressIcons.h"

#include <algorithm>
#include <limits>
#include <numbers>

using namespace toolkit;

namespace vela {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double twelveOClock = -pi / 2;
constexpr double fullRingEnd = 4.71238899230957f;     // radians: three quarters past twelve o'clock's angle
constexpr double partialRingEnd = 3.769911289215088f; // four fifths of the ring
constexpr double fullTurn = 6.2831855f;
constexpr double turnDuration = 1; // seconds
constexpr const char* rotationKey = "rotationAnimation";
constexpr const char* showKey = "Show";
constexpr const char* hideKey = "Hide";

void show(Layer& layer, const M13ProgressViewRing& ring) {
    layer.addAnimation(showKey, ring.showAnimation());
}

void hide(Layer& layer, const M13ProgressViewRing& ring) {
    layer.addAnimation(hideKey, ring.hideAnimation());
}

} // namespace

runtime::Class& M13ProgressViewRing::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<M13ProgressViewRing>("M13ProgressViewRing", &M13ProgressView::staticClass())
            .action("animateProgress:", &M13ProgressViewRing::animateProgress)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(M13ProgressViewRing)

M13ProgressViewRing::M13ProgressViewRing(Rect frame)
    : M13ProgressView(frame),
      percentageLabel_(std::make_shared<UILabel>()),
      progressLayer_(std::make_shared<ShapeLayer>()),
      backgroundLayer_(std::make_shared<ShapeLayer>()),
      iconLayer_(std::make_shared<ShapeLayer>()) {
    setup();
}

void M13ProgressViewRing::setup() {
    setBackgroundColor(Color::clear());
    setAutomaticWidths(bounds().width);
    setAnimationDuration(0.3);
    percentageFormatter_.setNumberStyle(foundation::NumberFormatterStyle::Percent);

    backgroundLayer_->setFillColor(Color::clear());
    backgroundLayer_->setLineCap(LineCap::Round);
    progressLayer_->setFillColor(Color::clear());
    progressLayer_->setLineCap(LineCap::Butt);
    for (const auto& part : {backgroundLayer_, progressLayer_, iconLayer_})
        layer()->addSublayer(part);
    const Color blue = Color::rgba(0, 0.47843137254901963, 1);
    setPrimaryColor(blue);
    setSecondaryColor(blue);

    percentageLabel_->setTextAlignment(TextAlignment::Center);
    percentageLabel_->setFrame(bounds());
    addSubview(percentageLabel_);
    placeLayers();
}

// Look

void M13ProgressViewRing::setAutomaticWidths(double width) {
    const double thin = std::max(width * 0.025, 1.0);
    if (!backgroundRingWidthOverridden_)
        backgroundRingWidth_ = thin;
    if (!progressRingWidthOverridden_)
        progressRingWidth_ = thin * 3;
    backgroundLayer_->setLineWidth(backgroundRingWidth_);
    progressLayer_->setLineWidth(progressRingWidth_);
}

void M13ProgressViewRing::setBackgroundRingWidth(double width) {
    backgroundRingWidth_ = width;
    backgroundLayer_->setLineWidth(width);
    backgroundRingWidthOverridden_ = true;
    redraw();
}

void M13ProgressViewRing::setProgressRingWidth(double width) {
    progressRingWidth_ = width;
    progressLayer_->setLineWidth(width);
    progressRingWidthOverridden_ = true;
    redraw();
}

void M13ProgressViewRing::setPrimaryColor(Color color) {
    M13ProgressView::setPrimaryColor(color);
    progressLayer_->setStrokeColor(color);
    iconLayer_->setFillColor(color);
    percentageLabel_->setTextColor(color);
    redraw();
}

void M13ProgressViewRing::setSecondaryColor(Color color) {
    M13ProgressView::setSecondaryColor(color);
    backgroundLayer_->setStrokeColor(color);
    redraw();
}

void M13ProgressViewRing::setShowPercentage(bool show) {
    showPercentage_ = show;
    if (!show)
        return percentageLabel_->removeFromSuperview();
    if (percentageLabel_->superview())
        return;
    addSubview(percentageLabel_);
    setNeedsLayout();
}

// Layout

void M13ProgressViewRing::setFrame(Rect frame) {
    M13ProgressView::setFrame(frame);
    placeLayers();
}

void M13ProgressViewRing::placeLayers() {
    for (const auto& part : {backgroundLayer_, progressLayer_, iconLayer_}) {
        part->setBounds({{}, bounds().size()});
        part->setPosition(bounds().center());
    }
}

void M13ProgressViewRing::layoutSubviews() {
    placeLayers();
    percentageLabel_->setFont(Font::system(bounds().width / 5));
    percentageLabel_->setTextColor(primaryColor());
    percentageLabel_->setFrame(bounds());
    setAutomaticWidths(frame().width);
    redraw();
}

// Drawing

void M13ProgressViewRing::drawRect(Rect) {
    drawBackground();
    drawIcon();
    drawProgress();
}

Path M13ProgressViewRing::arc(double ringWidth, double end) const {
    const double width = bounds().width, radius = (width - ringWidth) * 0.5;
    Path path;
    if (radius > 0)
        path.arc({width * 0.5, width * 0.5}, radius, twelveOClock, end);
    return path;
}

void M13ProgressViewRing::drawBackground() {
    backgroundLayer_->setPath(arc(backgroundRingWidth_, indeterminate() ? partialRingEnd : fullRingEnd));
}

void M13ProgressViewRing::drawProgress() {
    progressLayer_->setPath(
        arc(progressRingWidth_, std::clamp(progress(), 0.0, 1.0) * 2 * pi + twelveOClock));
    percentageLabel_->setText(percentageFormatter_.stringFromNumber(progress()));
}

void M13ProgressViewRing::drawIcon() {
    if (currentAction_ == M13ProgressViewActionSuccess)
        drawSuccess();
    else if (currentAction_ == M13ProgressViewActionFailure)
        drawFailure();
    else
        iconLayer_->setPath({});
}

void M13ProgressViewRing::drawSuccess() {
    iconLayer_->setPath(tickPath(bounds().width / 2));
}

void M13ProgressViewRing::drawFailure() {
    iconLayer_->setPath(crossPath(bounds().width / 2));
}

// Progress

void M13ProgressViewRing::setProgress(double progress, bool animated) {
    if (progress == this->progress())
        return;
    if (!animated) {
        removeDisplayLink();
        M13ProgressView::setProgress(progress, animated);
        redraw();
        return;
    }
    auto& loop = foundation::RunLoop::main();
    animationStartTime_ = loop.now();
    animationFromValue_ = this->progress();
    animationToValue_ = progress;
    if (displayLink_)
        return;
    displayLink_ = CADisplayLink::displayLinkWithTarget(*this, "animateProgress:");
    displayLink_->addToRunLoop(loop, RunLoopMode::Common);
}

void M13ProgressViewRing::animateProgress(CADisplayLink& link) {
    foundation::RunLoop::main().performOnMain(
        [self = runtime::WeakPtr<M13ProgressViewRing>(this), timestamp = link.timestamp()] {
            if (self && self->displayLink_)
                self->stepProgress(timestamp);
        });
}

void M13ProgressViewRing::stepProgress(double timestamp) {
    const double t = (timestamp - animationStartTime_) / animationDuration();
    if (t >= 1) {
        removeDisplayLink();
        storeProgress(animationToValue_);
    } else {
        storeProgress(animationFromValue_ + t * (animationToValue_ - animationFromValue_));
    }
    redraw();
}

// Indeterminate

BasicAnimation M13ProgressViewRing::showAnimation() const {
    BasicAnimation fade{LayerProperty::Opacity, 0.0, 1.0};
    fade.duration = animationDuration();
    fade.removedOnCompletion = false;
    return fade;
}

BasicAnimation M13ProgressViewRing::hideAnimation() const {
    BasicAnimation fade = showAnimation();
    std::swap(fade.from, fade.to);
    return fade;
}

void M13ProgressViewRing::setIndeterminate(bool indeterminate) {
    M13ProgressView::setIndeterminate(indeterminate);
    Layer &progress = *progressLayer_, &label = *percentageLabel_->layer();
    if (!indeterminate) {
        performTransaction(
            false,
            [&] {
                show(progress, *this);
                show(label, *this);
            },
            [self = runtime::WeakPtr<M13ProgressViewRing>(this)] {
                // Switched on again in the meantime, it turns on.
                if (!self || self->indeterminate())
                    return;
                self->backgroundLayer_->removeAnimation(rotationKey);
                self->drawBackground();
            });
        return;
    }
    drawBackground();
    BasicAnimation turning{LayerProperty::Rotation, 0.0, fullTurn};
    turning.duration = turnDuration;
    turning.repeatCount = std::numeric_limits<double>::infinity();
    backgroundLayer_->addAnimation(rotationKey, turning);
    performTransaction(false, [&] {
        hide(progress, *this);
        hide(label, *this);
    });
}

// Actions

void M13ProgressViewRing::performAction(std::int32_t action, bool) {
    if (action == M13ProgressViewActionNone)
        return hideIcon();
    if ((action != M13ProgressViewActionSuccess && action != M13ProgressViewActionFailure) ||
        action == currentAction_)
        return;
    if (currentAction_ == M13ProgressViewActionNone)
        showIcon(action);
    else
        swapIcon(action);
}

void M13ProgressViewRing::showIcon(std::int32_t action) {
    currentAction_ = action;
    drawIcon();
    performTransaction(false, [&] {
        show(*iconLayer_, *this);
        hide(*percentageLabel_->layer(), *this);
    });
}

void M13ProgressViewRing::swapIcon(std::int32_t action) {
    performTransaction(
        false, [&] { hide(*iconLayer_, *this); },
        [self = runtime::WeakPtr<M13ProgressViewRing>(this), action] {
            if (!self)
                return;
            self->currentAction_ = action;
            self->drawIcon();
            show(*self->iconLayer_, *self.get());
        });
}

void M13ProgressViewRing::hideIcon() {
    if (currentAction_ == M13ProgressViewActionNone)
        return;
    performTransaction(false, [&] {
        hide(*iconLayer_, *this);
        show(*percentageLabel_->layer(), *this);
    });
    currentAction_ = M13ProgressViewActionNone;
}

} // namespace vela

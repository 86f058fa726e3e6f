#include "hosts/phone/applications/PhotoViewer.h"

#include "hosts/phone/artwork/PhotoArtwork.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace phone {

namespace {

constexpr double turnFraction = 0.3; // of the width, for a slow swipe
constexpr double turnVelocity = 400; // points a second
constexpr double turnDuration = 0.25;

} // namespace

runtime::Class& PhotoViewer::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<PhotoViewer>("PhotoViewer", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(PhotoViewer)

PhotoViewer::PhotoViewer(int count, std::function<void(int)> shown)
    : count_(count), shown_(std::move(shown)), picture_(std::make_shared<UIImageView>()) {
    setBackgroundColor(Color::white(1));
    setClipsToBounds(true);
    addSubview(picture_);
    auto pan = std::make_shared<UIPanGestureRecognizer>(nullptr, runtime::Selector("panned:"));
    pan->addHandler([this](UIGestureRecognizer& recognizer) {
        handlePan(static_cast<UIPanGestureRecognizer&>(recognizer));
    });
    addGestureRecognizer(pan);
}

void PhotoViewer::show(int number) {
    number_ = number;
    drawn_ = {};
    setNeedsLayout();
    shown_(number);
}

void PhotoViewer::layoutSubviews() {
    const Size size = bounds().size();
    if (size == drawn_ || size.isEmpty())
        return;
    drawn_ = size;
    // A picture is drawn for the way the screen stands: high on an upright one, wide on one that lies.
    const double side = std::min(size.width, size.height);
    const Size picture = size.width > size.height ? Size{std::min(size.width, side * 1.5), side}
                                                  : Size{side, std::min(size.height, side * 1.25)};
    picture_->setTransform({});
    picture_->setFrame({(size.width - picture.width) / 2, (size.height - picture.height) / 2, picture.width,
                        picture.height});
    picture_->setImage(drawPhoto(number_, picture, UIScreen::mainScreen().scale()));
}

void PhotoViewer::handlePan(UIPanGestureRecognizer& pan) {
    const double moved = pan.translationInView(this).x, velocity = pan.velocityInView(this).x;
    if (pan.state() == GestureState::Began || pan.state() == GestureState::Changed)
        return picture_->setTransform(AffineTransform::translation(moved, 0));
    const bool far = std::abs(moved) > bounds().width * turnFraction || std::abs(velocity) > turnVelocity;
    const int next = number_ + (moved < 0 ? 1 : -1);
    if (pan.state() == GestureState::Ended && far && next >= 0 && next < count_) {
        show(next);
        layoutIfNeeded();
        picture_->setTransform(AffineTransform::translation(moved < 0 ? bounds().width : -bounds().width, 0));
    }
    UIView::animate(turnDuration, 0, AnimationCurve::EaseOut, [this] { picture_->setTransform({}); });
}

void PhotoViewer::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["number"] = number_;
}

} // namespace phone

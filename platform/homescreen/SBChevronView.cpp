#include "platform/homescreen/SBChevronView.h"

#include <nlohmann/json.hpp>

#include <cmath>

using namespace toolkit;

namespace homescreen {

namespace {

constexpr double barThickness = 5;    // points
constexpr double bendRadians = 0.32;  // of each half, in state 1
constexpr double bendDuration = 0.25; // seconds

std::shared_ptr<UIView> makeHalf(Color color) {
    auto half = std::make_shared<UIView>();
    half->setBackgroundColor(color);
    half->setUserInteractionEnabled(false);
    half->layer()->setCornerRadius(barThickness / 2);
    return half;
}

} // namespace

runtime::Class& SBChevronView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBChevronView>("SBChevronView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBChevronView)

SBChevronView::SBChevronView(Color color) : leftHalf_(makeHalf(color)), rightHalf_(makeHalf(color)) {
    addSubview(leftHalf_);
    addSubview(rightHalf_);
    setBounds({0, 0, fittedWidth, fittedHeight});
    placeHalves();
}

Size SBChevronView::sizeThatFits(Size) const {
    return {fittedWidth, fittedHeight};
}

void SBChevronView::setState(std::int64_t state, bool animated) {
    if (state == state_)
        return;
    state_ = state;
    if (animated)
        UIView::animate(bendDuration, 0, AnimationCurve::EaseInOut, [this] { placeHalves(); });
    else
        placeHalves();
}

void SBChevronView::layoutSubviews() {
    placeHalves();
}

void SBChevronView::placeHalves() {
    // The halves overlap by the bar's thickness, so that their round ends make one joint in the middle.
    const Size size = bounds().size();
    const double half = (size.width + barThickness) / 2;
    const double bend = state_ == 1 ? bendRadians : 0;
    const double reach = (half - barThickness) / 2;
    const double middleX = size.width / 2, middleY = size.height / 2;
    const double run = std::cos(bend) * reach;
    leftHalf_->setBounds({0, 0, half, barThickness});
    rightHalf_->setBounds({0, 0, half, barThickness});
    leftHalf_->setCenter({middleX - run, middleY});
    rightHalf_->setCenter({middleX + run, middleY});
    leftHalf_->setTransform(AffineTransform::rotation(bend));
    rightHalf_->setTransform(AffineTransform::rotation(-bend));
}

void SBChevronView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["state"] = state_;
}

} // namespace homescreen

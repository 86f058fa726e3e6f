#include "platform/toolkit/views/UIButton.h"

#include <algorithm>

namespace toolkit {

namespace {
constexpr double gap = 6; // points between picture and title
constexpr double highlightedAlpha = 0.3;
constexpr double disabledAlpha = 0.35;
constexpr double releaseDuration = 0.25; // seconds; the press itself shows at once

/// `size` made smaller, in proportion, until it fits `limit`.
Size fittedInto(Size size, Size limit) {
    if (size.isEmpty() || limit.isEmpty())
        return {};
    const double scale = std::min({1.0, limit.width / size.width, limit.height / size.height});
    return {size.width * scale, size.height * scale};
}
} // namespace

runtime::Class& UIButton::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIButton>("UIButton", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIButton)

UIButton::UIButton(Rect frame)
    : UIControl(frame),
      imageView_(std::make_shared<UIImageView>()),
      titleLabel_(std::make_shared<UILabel>()) {
    titleLabel_->setTextColor(Color::rgba(0, 122 / 255.0, 1));
    titleLabel_->setTextAlignment(TextAlignment::Center);
    addSubview(imageView_);
    addSubview(titleLabel_);
}

void UIButton::setTitle(std::string title) {
    titleLabel_->setText(std::move(title));
    setNeedsLayout();
}

void UIButton::setImage(std::shared_ptr<const Image> image) {
    imageView_->setImage(std::move(image));
    setNeedsLayout();
}

Size UIButton::sizeThatFits(Size) const {
    const Size picture = imageView_->sizeThatFits({});
    const Size text = titleLabel_->sizeThatFits({});
    const bool both = !picture.isEmpty() && !text.isEmpty();
    return {picture.width + (both ? gap : 0) + text.width, std::max(picture.height, text.height)};
}

void UIButton::layoutSubviews() {
    const Rect area = bounds();
    const Size picture = fittedInto(imageView_->sizeThatFits({}), area.size());
    Size text = titleLabel_->sizeThatFits({});
    const double between = !picture.isEmpty() && !text.isEmpty() ? gap : 0;
    text.width = std::clamp(area.width - picture.width - between, 0.0, text.width);
    const double left = area.x + (area.width - picture.width - between - text.width) / 2;
    imageView_->setFrame({left, area.y + (area.height - picture.height) / 2, picture.width, picture.height});
    titleLabel_->setFrame({left + picture.width + between, area.y, text.width, area.height});
}

double UIButton::contentAlpha() const {
    if (!isEnabled())
        return disabledAlpha;
    return isHighlighted() ? highlightedAlpha : 1;
}

void UIButton::showState() {
    imageView_->setAlpha(contentAlpha());
    titleLabel_->setAlpha(contentAlpha());
}

void UIButton::highlightChanged() {
    if (isHighlighted())
        showState();
    else
        UIView::animate(releaseDuration, 0, AnimationCurve::EaseInOut, [this] { showState(); });
}

void UIButton::enabledChanged() {
    showState();
}

} // namespace toolkit

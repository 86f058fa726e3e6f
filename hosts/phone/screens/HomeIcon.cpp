#include "hosts/phone/screens/HomeIcon.h"

#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/gestures/Touch.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace phone {

runtime::Class& HomeIcon::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<HomeIcon>("HomeIcon", &SBIconView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(HomeIcon)

HomeIcon::HomeIcon(std::string bundleIdentifier, const std::string& name,
                   std::shared_ptr<const Image> picture, std::function<void(HomeIcon&)> tapped)
    : bundleIdentifier_(std::move(bundleIdentifier)),
      tapped_(std::move(tapped)),
      picture_(std::make_shared<UIImageView>(Rect(), std::move(picture))),
      shadow_(makeLabel(name, Font::system(12), Color::black().withAlpha(0.45), TextAlignment::Center)),
      name_(makeLabel(name, Font::system(12), Color::white(1), TextAlignment::Center)) {
    addSubview(picture_);
    addSubview(shadow_);
    addSubview(name_);
}

Rect HomeIcon::pictureOnScreen() const {
    return picture_->convertRectTo(picture_->bounds(), nullptr);
}

Size HomeIcon::sizeThatFits(Size) const {
    const Size picture = picture_->image()->size();
    return {picture.width, picture.height + labelGap + labelHeight};
}

void HomeIcon::layoutSubviews() {
    const Size picture = picture_->image()->size();
    const double width = bounds().width;
    picture_->setFrame({(width - picture.width) / 2, 0, picture.width, picture.height});
    // Names may be wider than the picture.
    const Rect name{-12, picture.height + labelGap, width + 24, labelHeight};
    name_->setFrame(name);
    shadow_->setFrame(name.offsetBy(0, 1));
}

void HomeIcon::touchesBegan(const Touch&) {
    setPressed(true);
}

void HomeIcon::touchesMoved(const Touch& touch) {
    setPressed(pointInside(touch.locationIn(this)));
}

void HomeIcon::touchesEnded(const Touch&) {
    const bool open = pressed_;
    setPressed(false);
    if (open)
        tapped_(*this);
}

void HomeIcon::touchesCancelled(const Touch&) {
    setPressed(false);
}

void HomeIcon::setPressed(bool pressed) {
    if (pressed == pressed_)
        return;
    pressed_ = pressed;
    picture_->setAlpha(pressed ? 0.6 : 1);
}

void HomeIcon::describeProperties(nlohmann::json& properties) const {
    SBIconView::describeProperties(properties);
    properties["bundleIdentifier"] = bundleIdentifier_;
}

} // namespace phone

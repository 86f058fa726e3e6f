#include "hosts/phone/screens/SwitcherCard.h"

#include "hosts/phone/screens/Labels.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace phone {

namespace {

constexpr double iconSide = 29; // points
constexpr double cornerRadius = 9;

} // namespace

runtime::Class& SwitcherCard::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SwitcherCard>("SwitcherCard", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SwitcherCard)

SwitcherCard::SwitcherCard(std::string bundleIdentifier, const std::string& name,
                           std::shared_ptr<const Image> icon, std::shared_ptr<const Image> picture)
    : bundleIdentifier_(std::move(bundleIdentifier)),
      icon_(std::make_shared<UIImageView>(Rect(), std::move(icon))),
      name_(makeLabel(name, Font::system(15, FontWeight::Medium), Color::white(1))),
      shadow_(std::make_shared<UIView>()),
      picture_(std::make_shared<UIImageView>(Rect(), std::move(picture))) {
    shadow_->setBackgroundColor(Color::black());
    shadow_->layer()->setCornerRadius(cornerRadius);
    shadow_->layer()->setShadow({Color::black(), 0.45, 10, {0, 4}});
    picture_->layer()->setCornerRadius(cornerRadius);
    picture_->setClipsToBounds(true);
    picture_->setContentMode(ContentGravity::AspectFill);
    addSubview(icon_);
    addSubview(name_);
    addSubview(shadow_);
    addSubview(picture_);
}

void SwitcherCard::layoutSubviews() {
    const Size size = bounds().size();
    const double nameLeft = icon_->image() ? iconSide + 8 : 2;
    icon_->setFrame({2, 2, iconSide, iconSide});
    name_->setFrame({nameLeft, 2, size.width - nameLeft, iconSide});
    const Rect picture{0, headerHeight, size.width, size.height - headerHeight};
    shadow_->setFrame(picture);
    picture_->setFrame(picture);
}

void SwitcherCard::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["bundleIdentifier"] = bundleIdentifier_;
}

} // namespace phone

#include "hosts/phone/applications/NavigationBar.h"

#include "hosts/phone/screens/Labels.h"
#include "hosts/phone/screens/StatusBar.h"

using namespace toolkit;

namespace phone {

runtime::Class& NavigationBar::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<NavigationBar>("NavigationBar", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(NavigationBar)

NavigationBar::NavigationBar(const std::string& title, NavigationBarStyle style, Color tint)
    : tint_(tint),
      title_(makeLabel(title, Font::system(17, FontWeight::Semibold),
                       style == NavigationBarStyle::Light ? Color::black() : Color::white(1),
                       TextAlignment::Center)),
      hairline_(std::make_shared<UIView>()) {
    const bool light = style == NavigationBarStyle::Light;
    setBackgroundColor(light ? Color::white(0.975) : Color::white(0.07));
    hairline_->setBackgroundColor(light ? Color::white(0.70) : Color::white(0.20));
    addSubview(title_);
    addSubview(hairline_);
    makeButton(left_);
    makeButton(right_);
}

double NavigationBar::heightFor(Size view) {
    const bool shortScreen = view.height < 500 && view.width > view.height;
    return StatusBar::height + (shortScreen ? 32 : 44);
}

void NavigationBar::setTitle(const std::string& title) {
    title_->setText(title);
}

void NavigationBar::setLeftButton(const std::string& title, std::function<void()> pressed) {
    setButton(left_, title, std::move(pressed));
}

void NavigationBar::setRightButton(const std::string& title, std::function<void()> pressed) {
    setButton(right_, title, std::move(pressed));
}

void NavigationBar::makeButton(Side& side) {
    side.button = std::make_shared<UIButton>();
    side.button->setHidden(true);
    side.button->titleLabel()->setTextColor(tint_);
    side.button->titleLabel()->setFont(Font::system(17));
    side.button->addHandler(ControlEvent::TouchUpInside, [&side] {
        if (const auto pressed = side.pressed)
            pressed();
    });
    addSubview(side.button);
}

void NavigationBar::setButton(Side& side, const std::string& title, std::function<void()> pressed) {
    side.pressed = std::move(pressed);
    side.button->setHidden(title.empty());
    if (title != side.button->title())
        side.button->setTitle(title);
    setNeedsLayout();
}

void NavigationBar::layoutSubviews() {
    const Size size = bounds().size();
    const double height = size.height - StatusBar::height;
    title_->setFrame({80, StatusBar::height, size.width - 160, height});
    hairline_->setFrame({0, size.height - 0.5, size.width, 0.5});
    constexpr double sideMargin = 12;
    const auto widthOf = [height](const UIButton& button) {
        return button.titleLabel()->sizeThatFits({200, height}).width + 8;
    };
    left_.button->setFrame({sideMargin, StatusBar::height, widthOf(*left_.button), height});
    const double rightWidth = widthOf(*right_.button);
    right_.button->setFrame({size.width - sideMargin - rightWidth, StatusBar::height, rightWidth, height});
}

} // namespace phone

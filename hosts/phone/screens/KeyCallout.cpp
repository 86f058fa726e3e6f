#include "hosts/phone/screens/KeyCallout.h"

#include "hosts/phone/screens/Labels.h"

using namespace toolkit;

namespace phone {

runtime::Class& KeyCallout::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<KeyCallout>("KeyCallout", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(KeyCallout)

KeyCallout::KeyCallout() : label_(makeLabel("", Font::system(34), Color::black(), TextAlignment::Center)) {
    setBackgroundColor(Color::white(1));
    setUserInteractionEnabled(false);
    setHidden(true);
    layer()->setCornerRadius(9);
    layer()->setShadow({Color::black(), 0.28, 4, {0, 1}});
    addSubview(label_);
}

void KeyCallout::show(const std::string& text, Rect key, double keyboardWidth) {
    label_->setText(text);
    const double width = std::max(key.width + 16, 48.0), height = 54;
    const double x = std::clamp(key.center().x - width / 2, 1.0, keyboardWidth - width - 1);
    setFrame({x, key.y - height - 3, width, height});
    setHidden(false);
}

void KeyCallout::layoutSubviews() {
    label_->setFrame(bounds());
}

} // namespace phone

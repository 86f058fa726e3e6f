#include "hosts/phone/screens/Dock.h"

using namespace toolkit;

namespace phone {

runtime::Class& Dock::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<Dock>("Dock", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(Dock)

Dock::Dock() : glass_(std::make_shared<UIVisualEffectView>(VisualEffect::blur(BlurEffectStyle::Light))) {
    // The light effect alone would outshine the names on it.
    glass_->setAlpha(0.55);
    glass_->setUserInteractionEnabled(false);
    addSubview(glass_);
}

void Dock::addIcon(std::shared_ptr<HomeIcon> icon) {
    icons_.push_back(icon);
    addSubview(icon);
}

void Dock::layoutSubviews() {
    const Size size = bounds().size();
    glass_->setFrame({0, 0, size.width, size.height});
    if (icons_.empty())
        return;
    const Size icon = icons_.front()->sizeThatFits({});
    const double count = static_cast<double>(icons_.size());
    // Icons stand close together on a wide dock instead of drifting apart.
    const double gap = std::min((size.width - count * icon.width) / (count + 1), icon.width * 0.75);
    double x = (size.width - count * icon.width - (count - 1) * gap) / 2;
    for (const auto& each : icons_) {
        each->setFrame({x, (size.height - icon.height) / 2 + 2, icon.width, icon.height});
        x += icon.width + gap;
    }
}

} // namespace phone

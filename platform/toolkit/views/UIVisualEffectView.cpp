#include "platform/toolkit/views/UIVisualEffectView.h"

namespace toolkit {

runtime::Class& UIVisualEffectView::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UIVisualEffectView>("UIVisualEffectView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIVisualEffectView)

UIVisualEffectView::UIVisualEffectView(std::optional<VisualEffect> effect)
    : contentView_(std::make_shared<UIView>()) {
    addSubview(contentView_);
    setEffect(effect);
}

void UIVisualEffectView::setEffect(std::optional<VisualEffect> effect) {
    effect_ = effect;
    std::optional<BackdropStyle> backdrop;
    GroupBlend blend = GroupBlend::Normal;
    if (effect) {
        const bool dark = effect->style == BlurEffectStyle::Dark;
        if (effect->kind == VisualEffect::Kind::Blur)
            backdrop = dark ? BackdropStyle::Dark : BackdropStyle::Light;
        else
            blend = dark ? GroupBlend::VibrancyDark : GroupBlend::VibrancyLight;
    }
    layer()->setBackdrop(backdrop);
    contentView_->layer()->setGroupBlend(blend);
}

bool UIVisualEffectView::takesTouchAt(Point point) const {
    return const_cast<UIVisualEffectView*>(this)->hitTest(point) != nullptr;
}

void UIVisualEffectView::layoutSubviews() {
    contentView_->setFrame(bounds());
}

} // namespace toolkit

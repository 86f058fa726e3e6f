// A view that blurs and tints what lies beneath it, or lets its content shine with it (vibrancy).
//
// Content goes into contentView().
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

enum class BlurEffectStyle { Dark, Light };

/// The effect of an effect view: a blur, or vibrancy made for a blur.
struct VisualEffect {
    enum class Kind { Blur, Vibrancy };
    Kind kind = Kind::Blur;
    BlurEffectStyle style = BlurEffectStyle::Dark;

    static VisualEffect blur(BlurEffectStyle style) { return {Kind::Blur, style}; }
    static VisualEffect vibrancyFor(VisualEffect blur) { return {Kind::Vibrancy, blur.style}; }
    friend bool operator==(const VisualEffect&, const VisualEffect&) = default;
};

class UIVisualEffectView : public UIView {
    RUNTIME_CLASS()
public:
    explicit UIVisualEffectView(std::optional<VisualEffect> effect = std::nullopt);

    const std::optional<VisualEffect>& effect() const { return effect_; }
    void setEffect(std::optional<VisualEffect> effect);
    const std::shared_ptr<UIView>& contentView() const { return contentView_; }

    bool takesTouchAt(Point point) const override;
    void layoutSubviews() override;

private:
    std::optional<VisualEffect> effect_;
    std::shared_ptr<UIView> contentView_;
};

} // namespace toolkit

#include "hosts/phone/screens/VolumeDisplay.h"

#include "hosts/phone/screens/Labels.h"

#include <nlohmann/json.hpp>

#include <numbers>

using namespace toolkit;

namespace phone {

class VolumeDisplay::Picture : public UIView {
public:
    int level = 8;

    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override {
        drawLoudspeaker(canvas, {bounds.width / 2 - 10, bounds.height / 2 + 1});
        constexpr double pitch = 8, width = 7, left = (side - pitch * steps + 1) / 2;
        for (int i = 0; i < steps; ++i)
            canvas.fillRect({left + pitch * i, side - 24, width, 7}, ink.withAlpha(i < level ? 0.85 : 0.14));
    }

private:
    static constexpr Color ink{0.12, 0.12, 0.14, 1};

    void drawLoudspeaker(Canvas& canvas, Point c) const {
        const Color color = ink.withAlpha(0.72);
        canvas.fillPath(Path()
                            .moveTo({c.x - 30, c.y - 9})
                            .lineTo({c.x - 17, c.y - 9})
                            .lineTo({c.x + 2, c.y - 25})
                            .lineTo({c.x + 2, c.y + 25})
                            .lineTo({c.x - 17, c.y + 9})
                            .lineTo({c.x - 30, c.y + 9})
                            .close(),
                        color);
        const double reach = 0.26 * std::numbers::pi;
        if (level == 0) {
            canvas.strokePath(Path().moveTo({c.x + 14, c.y - 10}).lineTo({c.x + 34, c.y + 10}), 5,
                              LineCap::Round, color);
            canvas.strokePath(Path().moveTo({c.x + 34, c.y - 10}).lineTo({c.x + 14, c.y + 10}), 5,
                              LineCap::Round, color);
            return;
        }
        const int waves = 1 + (level - 1) * 3 / steps;
        for (int i = 0; i < waves; ++i)
            canvas.strokePath(Path().arc({c.x - 6, c.y}, 21.0 + 12 * i, -reach, reach), 5, LineCap::Round,
                              color);
    }
};

runtime::Class& VolumeDisplay::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<VolumeDisplay>("VolumeDisplay", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(VolumeDisplay)

VolumeDisplay::VolumeDisplay()
    : UIView({0, 0, side, side}),
      glass_(std::make_shared<UIVisualEffectView>(VisualEffect::blur(BlurEffectStyle::Light))),
      picture_(std::make_shared<Picture>()) {
    layer()->setCornerRadius(14);
    setClipsToBounds(true);
    setUserInteractionEnabled(false);
    addSubview(glass_);
    addSubview(makeLabel("Volume", Font::system(16, FontWeight::Semibold), Color::white(0.12, 0.8),
                         TextAlignment::Center));
    addSubview(picture_);
}

void VolumeDisplay::setLevel(int level) {
    picture_->level = level;
    picture_->setNeedsDisplay();
}

void VolumeDisplay::layoutSubviews() {
    glass_->setFrame(bounds());
    picture_->setFrame(bounds());
    subviews()[1]->setFrame({0, 14, side, 22});
}

void VolumeDisplay::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["level"] = picture_->level;
}

} // namespace phone

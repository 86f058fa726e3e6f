#include "vela/settings/velaBar.h"

#include "platform/toolkit/animation/Animation.h"

using namespace toolkit;

namespace vela {

runtime::Class& velaBar::staticClass() {
    static auto& cls = runtime::ClassBuilder<velaBar>("velaBar", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(velaBar)

velaBar::velaBar(int tag, double x, Color color)
    : UIView({x, (areaHeight - restingHeight) / 2, width, restingHeight}), tag_(tag) {
    setBackgroundColor(color);
    layer()->setCornerRadius(width / 2);
}

void velaBar::setHeight(double height) {
    const Rect now = frame();
    setFrame({now.x, (areaHeight - height) / 2, now.width, height});
}

void velaBar::removeAllAnimations() {
    // A plain set of a property, be it to the same value, ends what moves it.
    AnimationEngine::shared().withoutAnimation([this] { setFrame(frame()); });
}

} // namespace vela

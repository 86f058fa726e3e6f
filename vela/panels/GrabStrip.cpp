#include "vela/panels/GrabStrip.h"

using namespace toolkit;
using homescreen::SBChevronView;

namespace vela {

GrabStrip GrabStrip::make(double radians) {
    GrabStrip strip{std::make_shared<UIView>(), std::make_shared<SBChevronView>(Color::black())};
    strip.container->setUserInteractionEnabled(true);
    strip.container->setBackgroundColor(Color::clear());
    strip.chevron->setUserInteractionEnabled(true);
    strip.chevron->setTransform(AffineTransform::rotation(radians));
    strip.chevron->setState(1, true);
    strip.container->addSubview(strip.chevron);
    return strip;
}

void GrabStrip::layOut(bool alternativeChevrons, double x, double height, UIView* dimmingChevron) const {
    chevron->setHidden(alternativeChevrons);
    container->setHidden(alternativeChevrons);
    if (dimmingChevron)
        dimmingChevron->setHidden(!alternativeChevrons);
    if (alternativeChevrons) {
        chevron->setFrame({});
        container->setFrame({});
        return;
    }
    container->setFrame({x, 0, width, height});
    chevron->sizeToFit();
    const Size fitted = chevron->frame().size();
    chevron->setFrame(
        {(width - fitted.width) * 0.5, (height - fitted.height) * 0.5, fitted.width, fitted.height});
}

} // namespace vela

#include "vela/board/velaIconView.h"

#include "platform/homescreen/SBIconView.h"
#include "platform/media/MPUChronologicalProgressView.h"

using namespace toolkit;

namespace vela {

namespace {

constexpr double iconCornerRadius = 12;
constexpr double labelWidth = 80;
constexpr double labelGap = 5;

/// Size of the home screen's own icons; nothing on a host that has none.
Size imageSize() {
    return runtime::Registry::shared().find("SBIconView") ? homescreen::SBIconView::defaultIconImageSize()
                                                          : Size();
}

} // namespace

runtime::Class& velaIconView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<velaIconView>("velaIconView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(velaIconView)

velaIconView::velaIconView(Rect frame)
    : UIView(frame),
      icon_(std::make_shared<UIImageView>()),
      lbl_(media::MPUChronologicalProgressView(2)._createTimeLabelWithStyle(0)) {
    setBackgroundColor(Color::clear());
    setUserInteractionEnabled(true);
    layer()->setMasksToBounds(false);
    icon_->layer()->setMasksToBounds(true);
    icon_->layer()->setCornerRadius(iconCornerRadius);
    icon_->setBackgroundColor(Color::clear());
    addSubview(icon_);
    lbl_->setFont(Font::system(16));
    lbl_->setTextAlignment(TextAlignment::Center);
    addSubview(lbl_);
}

Rect velaIconView::frameInTile(Size tile) {
    const Size image = imageSize();
    return {(tile.width - (image.width + 10)) / 2, (tile.height - (image.height + 20)) / 2, image.width + 10,
            image.height + 20};
}

void velaIconView::layoutSubviews() {
    const Size image = imageSize();
    const double width = frame().width;
    icon_->setFrame({(width - image.width) / 2, 0, image.width, image.height});
    lbl_->sizeToFit();
    lbl_->setFrame(
        {(width - labelWidth) / 2, icon_->frame().maxY() + labelGap, labelWidth, lbl_->frame().height});
}

} // namespace vela

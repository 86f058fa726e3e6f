#include "platform/media/MPUMediaControlsVolumeView.h"

#include "platform/media/MediaPort.h"
#include "platform/runtime/Message.h"
#include "platform/toolkit/rendering/Canvas.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <numbers>

using namespace toolkit;

namespace media {

namespace {

constexpr double signWidth = 24; // points
constexpr double gap = 8;
constexpr double restAlpha = 0.28;
constexpr double signAlpha = 0.75;

void drawLoudspeaker(Canvas& canvas, Point c, int waves, Color color) {
    canvas.fillPath(Path()
                        .moveTo({c.x - 6, c.y - 2.2})
                        .lineTo({c.x - 3, c.y - 2.2})
                        .lineTo({c.x + 1.2, c.y - 5.8})
                        .lineTo({c.x + 1.2, c.y + 5.8})
                        .lineTo({c.x - 3, c.y + 2.2})
                        .lineTo({c.x - 6, c.y + 2.2})
                        .close(),
                    color);
    const double reach = 0.24 * std::numbers::pi;
    for (int i = 0; i < waves; ++i)
        canvas.strokePath(Path().arc({c.x - 0.6, c.y}, 5.2 + 3.2 * i, -reach, reach), 1.4, LineCap::Round,
                          color);
}

} // namespace

runtime::Class& MPUMediaControlsVolumeView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPUMediaControlsVolumeView>("MPUMediaControlsVolumeView",
                                                          &UIView::staticClass())
            .method("_volumeSliderBeganChanging:", &MPUMediaControlsVolumeView::hostVolumeSliderBeganChanging)
            .method("_volumeSliderStoppedChanging:",
                    &MPUMediaControlsVolumeView::hostVolumeSliderStoppedChanging)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUMediaControlsVolumeView)

MPUMediaControlsVolumeView::MPUMediaControlsVolumeView(Rect frame)
    : UIView(frame), slider_(std::make_shared<UISlider>()) {
    addSubview(slider_);
    setColor(color_);
    slider_->addHandler(ControlEvent::TouchDown, [this] { _volumeSliderBeganChanging(slider_.get()); });
    slider_->addHandler(ControlEvent::ValueChanged, [this] { sendVolume(); });
    slider_->addHandler(ControlEvent::TouchUpInside, [this] { letGo(); });
    slider_->addHandler(ControlEvent::TouchCancel, [this] { letGo(); });
}

void MPUMediaControlsVolumeView::_volumeSliderBeganChanging(runtime::Object* slider) {
    static const runtime::Message<void(runtime::Object*)> message{"_volumeSliderBeganChanging:"};
    message(*this, slider);
}

void MPUMediaControlsVolumeView::_volumeSliderStoppedChanging(runtime::Object* slider) {
    static const runtime::Message<void(runtime::Object*)> message{"_volumeSliderStoppedChanging:"};
    message(*this, slider);
}

void MPUMediaControlsVolumeView::hostVolumeSliderBeganChanging(runtime::Object*) {
    changing_ = true;
}

void MPUMediaControlsVolumeView::hostVolumeSliderStoppedChanging(runtime::Object*) {
    changing_ = false;
}

// The volume that the finger has settled on is set once more after it is lifted: that is the one change of
// which listeners know that no other follows.
void MPUMediaControlsVolumeView::letGo() {
    _volumeSliderStoppedChanging(slider_.get());
    sendVolume();
}

void MPUMediaControlsVolumeView::sendVolume() {
    if (MediaPort* port = MediaPort::current())
        port->setVolume(static_cast<double>(slider_->value()));
}

void MPUMediaControlsVolumeView::setVolume(double volume) {
    if (!slider_->isHighlighted())
        slider_->setValue(static_cast<float>(volume));
}

void MPUMediaControlsVolumeView::setColor(Color color) {
    color_ = color;
    slider_->setMinimumTrackTintColor(color);
    slider_->setMaximumTrackTintColor(color.withAlpha(color.alpha * restAlpha));
    setNeedsDisplay();
}

void MPUMediaControlsVolumeView::layoutSubviews() {
    const Size size = bounds().size();
    const double left = signWidth + gap;
    slider_->setFrame({left, 0, std::max(0.0, size.width - 2 * left), size.height});
}

void MPUMediaControlsVolumeView::drawContent(Canvas& canvas, Rect bounds) {
    const Color color = color_.withAlpha(color_.alpha * signAlpha);
    drawLoudspeaker(canvas, {signWidth / 2 + 4, bounds.height / 2}, 0, color);
    drawLoudspeaker(canvas, {bounds.width - signWidth / 2 - 4, bounds.height / 2}, 3, color);
}

void MPUMediaControlsVolumeView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["changing"] = changing_;
}

} // namespace media

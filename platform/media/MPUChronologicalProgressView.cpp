#include "platform/media/MPUChronologicalProgressView.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace toolkit;

namespace media {

namespace {

constexpr double timeFontSize = 11; // points
constexpr double edgeAlpha = 0.35;
constexpr double timeWidth = 46, gap = 6;
constexpr double longestTime = 359'999; // seconds; 99 hours, above which no clock is read

double usableTime(double seconds) {
    return std::isfinite(seconds) ? std::clamp(seconds, 0.0, longestTime) : 0;
}

} // namespace

runtime::Class& MPUChronologicalProgressView::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<MPUChronologicalProgressView>(
                                     "MPUChronologicalProgressView", &UIView::staticClass())
                                     .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUChronologicalProgressView)

MPUChronologicalProgressView::MPUChronologicalProgressView(std::int64_t style)
    : scrubber_(std::make_shared<MPUTimeScrubber>()),
      elapsedLabel_(_createTimeLabelWithStyle(style)),
      remainingLabel_(_createTimeLabelWithStyle(style)),
      liveLabel_(_createTimeLabelWithStyle(style)) {
    elapsedLabel_->setTextAlignment(TextAlignment::Right);
    liveLabel_->setTextAlignment(TextAlignment::Center);
    liveLabel_->setText("LIVE");
    for (const std::shared_ptr<UIView>& part :
         {std::shared_ptr<UIView>(elapsedLabel_), std::shared_ptr<UIView>(remainingLabel_),
          std::shared_ptr<UIView>(liveLabel_), std::shared_ptr<UIView>(scrubber_)})
        addSubview(part);
    scrubber_->addHandler(ControlEvent::ValueChanged, [this] { showTimes(scrubber_->value() * duration_); });
    scrubber_->addHandler(ControlEvent::TouchUpInside, [this] {
        elapsed_ = scrubber_->value() * duration_;
        if (const auto seek = seek_)
            seek(elapsed_);
    });
    scrubber_->addHandler(ControlEvent::TouchCancel, [this] { show(); });
    show();
}

std::shared_ptr<UILabel> MPUChronologicalProgressView::_createTimeLabelWithStyle(std::int64_t) const {
    auto label = std::make_shared<UILabel>();
    Font font = Font::system(timeFontSize);
    font.monospacedDigits = true;
    label->setFont(font);
    label->setTextColor(Color::white(1));
    label->setTextEdge(Color::black().withAlpha(edgeAlpha));
    return label;
}

std::string MPUChronologicalProgressView::timeText(double seconds) {
    const int whole = static_cast<int>(usableTime(seconds));
    char text[16];
    if (whole >= 3600)
        std::snprintf(text, sizeof text, "%d:%02d:%02d", whole / 3600, whole / 60 % 60, whole % 60);
    else
        std::snprintf(text, sizeof text, "%d:%02d", whole / 60, whole % 60);
    return text;
}

void MPUChronologicalProgressView::setTotalDuration(double seconds) {
    duration_ = usableTime(seconds);
    show();
}

void MPUChronologicalProgressView::setElapsedTime(double seconds) {
    elapsed_ = usableTime(seconds);
    show();
}

void MPUChronologicalProgressView::setAlwaysLive(bool alwaysLive) {
    alwaysLive_ = alwaysLive;
    show();
}

void MPUChronologicalProgressView::setColor(Color color) {
    scrubber_->setColor(color);
    for (const auto& label : {elapsedLabel_, remainingLabel_, liveLabel_}) {
        label->setTextColor(color);
        label->setTextEdge(Color::clear()); // the colour is chosen for the glass
    }
}

void MPUChronologicalProgressView::show() {
    const bool timed = !alwaysLive_, winds = timed && duration_ > 0;
    elapsedLabel_->setHidden(!timed);
    remainingLabel_->setHidden(!winds);
    liveLabel_->setHidden(timed);
    scrubber_->setHidden(!timed);
    scrubber_->setEnabled(winds);
    if (scrubber_->isHighlighted())
        return;
    scrubber_->setValue(winds ? elapsed_ / duration_ : 0);
    showTimes(elapsed_);
}

// Both are cut to whole seconds of the same moment, so that they step together and add up to the length.
void MPUChronologicalProgressView::showTimes(double elapsed) {
    elapsedLabel_->setText(timeText(elapsed));
    remainingLabel_->setText("-" + timeText(std::floor(duration_) - std::floor(elapsed)));
}

void MPUChronologicalProgressView::layoutSubviews() {
    const Size size = bounds().size();
    elapsedLabel_->setFrame({0, 0, timeWidth, size.height});
    remainingLabel_->setFrame({size.width - timeWidth, 0, timeWidth, size.height});
    liveLabel_->setFrame({0, 0, size.width, size.height});
    const double left = timeWidth + gap;
    scrubber_->setFrame({left, 0, std::max(0.0, size.width - 2 * left), size.height});
}

void MPUChronologicalProgressView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["elapsedTime"] = elapsed_;
    properties["totalDuration"] = duration_;
    properties["alwaysLive"] = alwaysLive_;
}

} // namespace media

// The volume slider of now-playing controls, between a quiet and a loud loudspeaker.
#pragma once

#include "platform/toolkit/views/UISlider.h"

namespace media {

class MPUMediaControlsVolumeView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit MPUMediaControlsVolumeView(toolkit::Rect frame = {});

    /// The finger has taken hold of the slider, and has let go of it.
    void _volumeSliderBeganChanging(runtime::Object* slider);
    void _volumeSliderStoppedChanging(runtime::Object* slider);
    bool isChanging() const { return changing_; }

    /// The volume that the phone has now, from 0 to 1; while a finger holds the slider, it stays with the
    /// finger.
    void setVolume(double volume);
    const std::shared_ptr<toolkit::UISlider>& slider() const { return slider_; }
    void setColor(toolkit::Color color);

    void layoutSubviews() override;
    bool drawsContent() const override { return true; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    void hostVolumeSliderBeganChanging(runtime::Object* slider);
    void hostVolumeSliderStoppedChanging(runtime::Object* slider);
    void letGo();
    void sendVolume();

    bool changing_ = false;
    toolkit::Color color_ = toolkit::Color::white(1);
    std::shared_ptr<toolkit::UISlider> slider_;
};

} // namespace media

// The volume slider of now-playing controls.
#pragma once

#include "platform/toolkit/views/UIControl.h"

namespace media {

class MPUMediaControlsVolumeView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit MPUMediaControlsVolumeView(toolkit::Rect frame = {});

    /// The finger has taken hold of the slider, and has let go of it.
    void _volumeSliderBeganChanging(runtime::Object* slider);
    void _volumeSliderStoppedChanging(runtime::Object* slider);
    bool isChanging() const { return changing_; }

private:
    void hostVolumeSliderBeganChanging(runtime::Object* slider);
    void hostVolumeSliderStoppedChanging(runtime::Object* slider);
    bool changing_ = false;
};

} // namespace media

// The view of now-playing controls: holds the volume view.
#pragma once

#include "platform/media/MPUMediaControlsVolumeView.h"

namespace media {

class MPUMediaControlsView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit MPUMediaControlsView(toolkit::Rect frame = {});

    const std::shared_ptr<MPUMediaControlsVolumeView>& volumeView() const { return volumeView_; }

private:
    std::shared_ptr<MPUMediaControlsVolumeView> volumeView_;
};

} // namespace media

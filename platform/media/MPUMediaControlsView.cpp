#include "platform/media/MPUMediaControlsView.h"

namespace media {

runtime::Class& MPUMediaControlsView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPUMediaControlsView>("MPUMediaControlsView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUMediaControlsView)

MPUMediaControlsView::MPUMediaControlsView(toolkit::Rect frame)
    : UIView(frame), volumeView_(std::make_shared<MPUMediaControlsVolumeView>()) {
    addSubview(volumeView_);
}

} // namespace media

#include "platform/media/MPUMediaControlsVolumeView.h"

#include "platform/runtime/Message.h"

namespace media {

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

MPUMediaControlsVolumeView::MPUMediaControlsVolumeView(toolkit::Rect frame) : UIView(frame) {}

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

} // namespace media

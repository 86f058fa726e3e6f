#include "platform/preferences/AVPlayer.h"

namespace preferences {

runtime::Class& AVPlayer::staticClass() {
    static auto& cls = runtime::ClassBuilder<AVPlayer>("AVPlayer", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(AVPlayer)

void AVPlayer::setPlaying(bool playing) {
    if (playing == playing_)
        return;
    playing_ = playing;
    if (playingChanged_)
        playingChanged_();
}

} // namespace preferences

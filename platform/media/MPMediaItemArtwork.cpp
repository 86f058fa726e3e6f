#include "platform/media/MPMediaItemArtwork.h"

#include "platform/media/CoverStore.h"
#include "platform/toolkit/windows/UIScreen.h"

using toolkit::Size;

namespace media {

runtime::Class& MPMediaItemArtwork::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMediaItemArtwork>("MPMediaItemArtwork", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMediaItemArtwork)

MPMediaItemArtwork::Picture MPMediaItemArtwork::imageWithSize(Size size) const {
    if (persistentID_ == 0)
        return image_;
    return CoverStore::shared().cover({persistentID_, size, toolkit::UIScreen::mainScreen().scale()});
}

foundation::Handle MPMediaItemArtwork::loadImage(Size size, std::function<void(Picture)> ready) const {
    if (persistentID_ == 0) {
        ready(image_);
        return {};
    }
    return CoverStore::shared().load({persistentID_, size, toolkit::UIScreen::mainScreen().scale()},
                                     std::move(ready));
}

} // namespace media

#include "platform/media/MPMediaItemArtwork.h"

namespace media {

runtime::Class& MPMediaItemArtwork::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMediaItemArtwork>("MPMediaItemArtwork", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMediaItemArtwork)

} // namespace media

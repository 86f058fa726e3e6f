#include "platform/media/MPMediaItemCollection.h"

namespace media {

runtime::Class& MPMediaItemCollection::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMediaItemCollection>("MPMediaItemCollection", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMediaItemCollection)

} // namespace media

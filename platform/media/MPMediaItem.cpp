#include "platform/media/MPMediaItem.h"

namespace media {

runtime::Class& MPMediaItem::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMediaItem>("MPMediaItem", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMediaItem)

foundation::PropertyList MPMediaItem::valueForProperty(const std::string& name) const {
    auto found = properties_.find(name);
    return found == properties_.end() ? foundation::PropertyList() : found->second;
}

} // namespace media

#include "platform/media/MPMediaQuery.h"

#include "platform/media/MediaPort.h"

namespace media {

runtime::Class& MPMediaQuery::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMediaQuery>("MPMediaQuery", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMediaQuery)

std::shared_ptr<MPMediaQuery> MPMediaQuery::songsQuery() {
    return std::make_shared<MPMediaQuery>();
}

SharedMediaItems MPMediaQuery::items() const {
    if (MediaPort* port = MediaPort::current())
        return port->songs();
    return std::make_shared<const MediaItems>();
}

} // namespace media

#include "platform/media/MediaPort.h"

namespace media {

namespace {
MediaPort* currentPort = nullptr;
}

MediaPort* MediaPort::current() {
    return currentPort;
}

void MediaPort::setCurrent(MediaPort* port) {
    currentPort = port;
}

} // namespace media

#include "platform/media/MediaPort.h"

#include <atomic>

namespace media {

namespace {
std::atomic<MediaPort*> currentPort = nullptr; // read on any thread
}

MediaPort* MediaPort::current() {
    return currentPort;
}

void MediaPort::setCurrent(MediaPort* port) {
    currentPort = port;
}

} // namespace media

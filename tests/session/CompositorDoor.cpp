#include "tests/session/CompositorDoor.h"

namespace tests {

CompositorDoor::CompositorDoor(std::filesystem::path socket, std::set<std::string> hidden)
    : compositor_(std::move(socket)),
      listener_(WireSocket::listenAt(place())),
      hidden_(std::move(hidden)),
      thread_([this] { serve(); }) {}

CompositorDoor::~CompositorDoor() {
    listener_.shutDown();
}

void CompositorDoor::hide(std::set<std::string> interfaces) {
    const std::lock_guard lock(mutex_);
    hidden_ = std::move(interfaces);
}

void CompositorDoor::tell(FilteredLine::Power power) {
    const std::lock_guard lock(mutex_);
    for (FilteredLine& line : lines_)
        line.tell(power);
}

void CompositorDoor::serve() {
    for (;;) {
        WireSocket client = listener_.accept();
        if (!client.isOpen())
            return;
        WireSocket compositor = WireSocket::connectTo(compositor_);
        const std::lock_guard lock(mutex_);
        if (compositor.isOpen())
            lines_.emplace_back(std::move(client), std::move(compositor), hidden_);
    }
}

} // namespace tests

// One end of a Wayland connection: bytes, with the file descriptors that travel along.
//
// Any thread; one at a time may receive, and one send.
#pragma once

#include "platform/foundation/FileDescriptor.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tests {

struct WireParcel {
    std::string bytes;
    std::vector<foundation::FileDescriptor> files;
};

class WireSocket {
public:
    explicit WireSocket(foundation::FileDescriptor socket) : socket_(std::move(socket)) {}
    /// Listens at `path`, which must be free. Throws std::runtime_error.
    static WireSocket listenAt(const std::filesystem::path& path);
    /// One that is not open when nobody listens.
    static WireSocket connectTo(const std::filesystem::path& path);

    bool isOpen() const { return static_cast<bool>(socket_); }
    /// Waits for somebody to connect; one that is not open when it has been shut down.
    WireSocket accept() const;
    /// Waits for something and adds it to the parcel; false at the end.
    bool receive(WireParcel& parcel) const;
    /// Sends all of it; false when nobody is there.
    bool send(const WireParcel& parcel) const;
    /// Ends whatever waits, here and at the other end.
    void shutDown() const;

private:
    foundation::FileDescriptor socket_;
};

} // namespace tests

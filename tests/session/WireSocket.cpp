#include "tests/session/WireSocket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>

namespace tests {

namespace {

/// As many as a client library takes at a time.
constexpr std::size_t mostFiles = 28;

struct alignas(cmsghdr) FileSpace {
    std::array<char, CMSG_SPACE(mostFiles * sizeof(int))> bytes{};
};

sockaddr_un addressOf(const std::filesystem::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof address.sun_path)
        throw std::runtime_error("the path is too long for a socket");
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

foundation::FileDescriptor newSocket() {
    return foundation::FileDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

void takeFiles(msghdr& message, std::vector<foundation::FileDescriptor>& files) {
    for (cmsghdr* header = CMSG_FIRSTHDR(&message); header; header = CMSG_NXTHDR(&message, header)) {
        if (header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS)
            continue;
        std::array<int, mostFiles> numbers{};
        const std::size_t bytes = std::min(header->cmsg_len - CMSG_LEN(0), sizeof numbers);
        std::memcpy(numbers.data(), CMSG_DATA(header), bytes);
        for (std::size_t i = 0; i < bytes / sizeof(int); ++i)
            files.emplace_back(numbers[i]);
    }
}

/// Writes `count` of the files into the message.
void putFiles(msghdr& message, FileSpace& space, const foundation::FileDescriptor* files, std::size_t count) {
    if (count == 0)
        return;
    std::array<int, mostFiles> numbers{};
    std::transform(files, files + count, numbers.begin(), [](const auto& file) { return file.number(); });
    message.msg_control = space.bytes.data();
    message.msg_controllen = CMSG_SPACE(count * sizeof(int));
    cmsghdr* header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(count * sizeof(int));
    std::memcpy(CMSG_DATA(header), numbers.data(), count * sizeof(int));
}

} // namespace

WireSocket WireSocket::listenAt(const std::filesystem::path& path) {
    auto socket = newSocket();
    const sockaddr_un address = addressOf(path);
    if (!socket || bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(socket.number(), 8) != 0)
        throw std::runtime_error("nobody can listen at " + path.string());
    return WireSocket(std::move(socket));
}

WireSocket WireSocket::connectTo(const std::filesystem::path& path) {
    auto socket = newSocket();
    const sockaddr_un address = addressOf(path);
    const bool connected =
        socket && connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return WireSocket(connected ? std::move(socket) : foundation::FileDescriptor());
}

WireSocket WireSocket::accept() const {
    return WireSocket(foundation::FileDescriptor(accept4(socket_.number(), nullptr, nullptr, SOCK_CLOEXEC)));
}

bool WireSocket::receive(WireParcel& parcel) const {
    std::array<char, 4096> bytes;
    FileSpace space;
    iovec piece{bytes.data(), bytes.size()};
    msghdr message{};
    message.msg_iov = &piece;
    message.msg_iovlen = 1;
    message.msg_control = space.bytes.data();
    message.msg_controllen = space.bytes.size();
    ssize_t count = 0;
    do
        count = recvmsg(socket_.number(), &message, MSG_CMSG_CLOEXEC);
    while (count < 0 && errno == EINTR);
    if (count <= 0)
        return false;
    takeFiles(message, parcel.files);
    parcel.bytes.append(bytes.data(), static_cast<std::size_t>(count));
    return true;
}

bool WireSocket::send(const WireParcel& parcel) const {
    std::size_t sent = 0, filesSent = 0;
    while (sent < parcel.bytes.size()) {
        const std::size_t files = std::min(parcel.files.size() - filesSent, mostFiles);
        // Files travel with a byte at least, and never later than the bytes that speak of them.
        const bool isLast = filesSent + files == parcel.files.size();
        std::string bytes = parcel.bytes.substr(sent, isLast ? std::string::npos : 1);
        iovec piece{bytes.data(), bytes.size()};
        FileSpace space;
        msghdr message{};
        message.msg_iov = &piece;
        message.msg_iovlen = 1;
        putFiles(message, space, parcel.files.data() + filesSent, files);
        const ssize_t count = sendmsg(socket_.number(), &message, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        sent += static_cast<std::size_t>(count);
        filesSent += files;
    }
    return true;
}

void WireSocket::shutDown() const {
    shutdown(socket_.number(), SHUT_RDWR);
}

} // namespace tests

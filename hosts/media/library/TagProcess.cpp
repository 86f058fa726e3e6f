#include "hosts/media/library/TagProcess.h"

#include "hosts/media/library/SongTagsCoding.h"
#include "hosts/media/library/TagReader.h"
#include "platform/foundation/Log.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

#include <glib.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace playback {

namespace {

constexpr int patience = 10'000; // milliseconds for a file
constexpr std::uint64_t longestAnswer = 1024 * 1024;

/// Beside this one in a build, else where the installation keeps its helpers.
std::filesystem::path tagReader() {
    std::error_code error;
    const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    for (const auto& directory : {here, here / ".." / "lib" / "vela3"})
        if (std::filesystem::exists(directory / TagProcess::programName, error))
            return directory / TagProcess::programName;
    return {};
}

} // namespace

TagProcess::TagProcess() : program_(tagReader()) {
    if (program_.empty())
        foundation::log(std::string(programName) + " is missing; music files are read without it.");
}

TagProcess::~TagProcess() {
    end();
}

bool TagProcess::start() {
    if (socket_)
        return true;
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return false;
    foundation::FileDescriptor ours(ends[0]);
    const foundation::FileDescriptor theirs(ends[1]);
    std::string program = program_;
    std::array<gchar*, 2> arguments{program.data(), nullptr};
    GPid process = 0;
    if (!g_spawn_async_with_fds(nullptr, arguments.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD, nullptr,
                                nullptr, &process, theirs.number(), theirs.number(), -1, nullptr))
        return false;
    process_ = process;
    socket_ = std::move(ours);
    return true;
}

void TagProcess::end() {
    if (!socket_)
        return;
    socket_ = foundation::FileDescriptor();
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

std::optional<SongTags> TagProcess::read(const std::filesystem::path& file) {
    if (program_.empty() || !start())
        return readTags(file);
    std::vector<std::uint8_t> answer;
    if (!send(file) || !receive(answer)) {
        end();
        return std::nullopt;
    }
    ByteReader reader(answer);
    auto tags = readTags(reader);
    return reader.failed() ? std::nullopt : tags;
}

bool TagProcess::send(const std::filesystem::path& file) {
    const std::string& path = file.native();
    std::size_t sent = 0;
    while (sent <= path.size()) { // with the NUL at its end
        const ssize_t count =
            ::send(socket_.number(), path.c_str() + sent, path.size() + 1 - sent, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

bool TagProcess::receive(std::vector<std::uint8_t>& answer) {
    std::array<std::uint8_t, 8> header{};
    if (!receive(header.data(), header.size()))
        return false;
    const std::uint64_t length = ByteReader(header).number();
    if (length > longestAnswer)
        return false;
    answer.resize(static_cast<std::size_t>(length));
    return receive(answer.data(), answer.size());
}

bool TagProcess::receive(std::uint8_t* bytes, std::size_t count) {
    while (count > 0) {
        pollfd waiting{socket_.number(), POLLIN, 0};
        const int ready = poll(&waiting, 1, patience);
        if (ready < 0 && errno == EINTR)
            continue;
        const ssize_t received = ready > 0 ? recv(socket_.number(), bytes, count, 0) : -1;
        if (received <= 0)
            return false;
        bytes += received;
        count -= static_cast<std::size_t>(received);
    }
    return true;
}

} // namespace playback

#include "tests/session/parent/ParentCompositor.h"

#include <cstring>
#include <future>
#include <stdexcept>
#include <utility>

#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tests {

void ParentCompositor::DisplayEnd::operator()(wl_display* display) const {
    wl_display_destroy(display);
}

ParentCompositor::ParentCompositor(const std::filesystem::path& socket, int width, int height)
    : display_(wl_display_create()), wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    shell_.emplace(display_.get(), width, height);
    seat_.emplace(display_.get(), *shell_);
    listenOn(socket);
    workSource_ = wl_event_loop_add_fd(wl_display_get_event_loop(display_.get()), wakeUp_, WL_EVENT_READABLE,
                                       workDue, this);
    thread_ = std::thread([this] { wl_display_run(display_.get()); });
}

ParentCompositor::~ParentCompositor() {
    perform([this](ParentSeat&) { wl_display_terminate(display_.get()); });
    thread_.join();
    // What goes with a client tells the seat and the shell so.
    wl_display_destroy_clients(display_.get());
    wl_event_source_remove(workSource_);
    close(wakeUp_);
}

void ParentCompositor::listenOn(const std::filesystem::path& socket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = socket;
    if (path.size() >= sizeof address.sun_path)
        throw std::runtime_error("the socket's path is too long");
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int file = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(file, 8) != 0 || wl_display_add_socket_fd(display_.get(), file) != 0)
        throw std::runtime_error("no socket for the compositor");
    std::filesystem::permissions(socket, std::filesystem::perms::all);
}

void ParentCompositor::perform(std::function<void(ParentSeat&)> work) {
    std::promise<void> done;
    {
        const std::lock_guard guard(lock_);
        work_.push_back([&] {
            work(*seat_);
            done.set_value();
        });
    }
    eventfd_write(wakeUp_, 1);
    done.get_future().wait();
}

int ParentCompositor::workDue(int file, std::uint32_t, void* data) {
    auto& self = *static_cast<ParentCompositor*>(data);
    eventfd_t count = 0;
    eventfd_read(file, &count);
    std::vector<std::function<void()>> due;
    {
        const std::lock_guard guard(self.lock_);
        due = std::exchange(self.work_, {});
    }
    for (const auto& work : due)
        work();
    return 0;
}

} // namespace tests

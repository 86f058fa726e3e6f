#include "tests/session/FrameWatch.h"

#include "tests/session/ClientConnection.h"

#include <cstring>
#include <stdexcept>

#include <sys/mman.h>
#include <unistd.h>

#include <wayland-client.h>

#include "wlr-screencopy-unstable-v1-client-protocol.h"

namespace tests {

namespace {

/// One point's pixels, however many of them a point has.
struct Look {
    enum class State { Asked, Ready, Failed };

    wl_shm* shm = nullptr;
    State state = State::Asked;
    wl_buffer* buffer = nullptr;
    void* pixels = MAP_FAILED;
    std::size_t byteCount = 0;
    double time = 0;

    ~Look() {
        if (buffer)
            wl_buffer_destroy(buffer);
        if (pixels != MAP_FAILED)
            munmap(pixels, byteCount);
    }
    void makeBuffer(std::uint32_t format, std::uint32_t width, std::uint32_t height, std::uint32_t stride) {
        byteCount = static_cast<std::size_t>(stride) * height;
        const int bytes = static_cast<int>(byteCount), file = memfd_create("frame-watch", MFD_CLOEXEC);
        if (ftruncate(file, bytes) != 0)
            throw std::runtime_error("no memory for a pixel");
        pixels = mmap(nullptr, byteCount, PROT_READ, MAP_SHARED, file, 0);
        wl_shm_pool* pool = wl_shm_create_pool(shm, file, bytes);
        buffer = wl_shm_pool_create_buffer(pool, 0, static_cast<int>(width), static_cast<int>(height),
                                           static_cast<int>(stride), format);
        wl_shm_pool_destroy(pool);
        close(file);
    }

    using Object = zwlr_screencopy_frame_v1;
    static Look& self(void* data) { return *static_cast<Look*>(data); }
    static constexpr zwlr_screencopy_frame_v1_listener listener{
        .buffer =
            [](void* data, Object* frame, std::uint32_t format, std::uint32_t width, std::uint32_t height,
               std::uint32_t stride) {
                self(data).makeBuffer(format, width, height, stride);
                zwlr_screencopy_frame_v1_copy(frame, self(data).buffer);
            },
        .flags = [](void*, Object*, std::uint32_t) {},
        .ready =
            [](void* data, Object*, std::uint32_t high, std::uint32_t low, std::uint32_t nanoseconds) {
                const auto seconds = std::uint64_t{high} << 32 | low;
                self(data).time = static_cast<double>(seconds) + nanoseconds / 1e9;
                self(data).state = State::Ready;
            },
        .failed = [](void* data, Object*) { self(data).state = State::Failed; },
        .damage = [](void*, Object*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .linux_dmabuf = [](void*, Object*, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .buffer_done = [](void*, Object*) {}};
};

} // namespace

/// Everything in its first version, which asks for the least answers.
struct FrameWatch::State {
    explicit State(const std::filesystem::path& socket) : connection(socket) {}

    ClientConnection connection;
    wl_shm* shm = connection.keep(connection.bind<wl_shm>(wl_shm_interface, 1));
    wl_output* output = connection.keep(connection.bind<wl_output>(wl_output_interface, 1));
    zwlr_screencopy_manager_v1* copies =
        connection.keep(connection.bind<zwlr_screencopy_manager_v1>(zwlr_screencopy_manager_v1_interface, 1));
};

FrameWatch::FrameWatch(const std::filesystem::path& runtimeDirectory, const std::string& display)
    : state_(std::make_unique<State>(runtimeDirectory / display)) {
    if (!state_->shm || !state_->output || !state_->copies)
        throw std::runtime_error("the compositor does not let anybody look at the screen");
}

FrameWatch::~FrameWatch() = default;

FrameWatch::Frame FrameWatch::next(int x, int y) {
    Look look{state_->shm};
    auto* frame =
        zwlr_screencopy_manager_v1_capture_output_region(state_->copies, 0, state_->output, x, y, 1, 1);
    zwlr_screencopy_frame_v1_add_listener(frame, &Look::listener, &look);
    while (look.state == Look::State::Asked && wl_display_dispatch(state_->connection.display()) >= 0) {
    }
    zwlr_screencopy_frame_v1_destroy(frame);
    if (look.state != Look::State::Ready)
        throw std::runtime_error("no frame came");
    Frame result{0, look.time};
    std::memcpy(&result.pixel, look.pixels, sizeof result.pixel);
    return result;
}

} // namespace tests

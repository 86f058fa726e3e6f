#include "tests/session/FrameWatch.h"

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

struct FrameWatch::State {
    wl_display* display = nullptr;
    wl_shm* shm = nullptr;
    wl_output* output = nullptr;
    zwlr_screencopy_manager_v1* copies = nullptr;

    ~State() {
        if (display)
            wl_display_disconnect(display);
    }
    void announced(wl_registry* registry, std::uint32_t name, const std::string& interface) {
        // In their first versions, which ask for the least answers.
        const auto bind = [&](const wl_interface& wanted) {
            return interface == wanted.name ? wl_registry_bind(registry, name, &wanted, 1) : nullptr;
        };
        if (void* object = bind(wl_shm_interface))
            shm = static_cast<wl_shm*>(object);
        else if (void* first = output ? nullptr : bind(wl_output_interface))
            output = static_cast<wl_output*>(first);
        else if (void* manager = bind(zwlr_screencopy_manager_v1_interface))
            copies = static_cast<zwlr_screencopy_manager_v1*>(manager);
    }
};

FrameWatch::FrameWatch(const std::filesystem::path& runtimeDirectory, const std::string& display)
    : state_(std::make_unique<State>()) {
    state_->display = wl_display_connect((runtimeDirectory / display).c_str());
    if (!state_->display)
        throw std::runtime_error("no connection to the compositor");
    static constexpr wl_registry_listener listener{
        [](void* data, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
            static_cast<State*>(data)->announced(registry, name, interface);
        },
        [](void*, wl_registry*, std::uint32_t) {}};
    wl_registry_add_listener(wl_display_get_registry(state_->display), &listener, state_.get());
    wl_display_roundtrip(state_->display);
    if (!state_->shm || !state_->output || !state_->copies)
        throw std::runtime_error("the compositor does not let anybody look at the screen");
}

FrameWatch::~FrameWatch() = default;

FrameWatch::Frame FrameWatch::next(int x, int y) {
    Look look{state_->shm};
    auto* frame =
        zwlr_screencopy_manager_v1_capture_output_region(state_->copies, 0, state_->output, x, y, 1, 1);
    zwlr_screencopy_frame_v1_add_listener(frame, &Look::listener, &look);
    while (look.state == Look::State::Asked && wl_display_dispatch(state_->display) >= 0) {
    }
    zwlr_screencopy_frame_v1_destroy(frame);
    if (look.state != Look::State::Ready)
        throw std::runtime_error("no frame came");
    Frame result{0, look.time};
    std::memcpy(&result.pixel, look.pixels, sizeof result.pixel);
    return result;
}

} // namespace tests

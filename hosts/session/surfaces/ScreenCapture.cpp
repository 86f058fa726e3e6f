#include "hosts/session/surfaces/ScreenCapture.h"

#include "hosts/session/surfaces/PixelBlocks.h"
#include "hosts/session/surfaces/ShmBuffer.h"
#include "hosts/session/wayland/Protocols.h"
#include "platform/foundation/RunLoop.h"

#include <cmath>
#include <new>
#include <optional>
#include <vector>

#include <poll.h>

namespace session {

using toolkit::Image;

namespace {

constexpr double limit = 0.1; // seconds

/// One request for a picture, with the events that answer it.
struct Request {
    enum class State { Asked, Copying, Ready, Failed };

    wl_shm& shm;
    std::unique_ptr<ShmBuffer> buffer;
    std::uint32_t format = 0;
    bool upsideDown = false;
    State state = State::Asked;

    bool isOver() const { return state == State::Ready || state == State::Failed; }

    static Request& self(void* data) { return *static_cast<Request*>(data); }
    static void offered(void* data, zwlr_screencopy_frame_v1* frame, std::uint32_t format,
                        std::uint32_t width, std::uint32_t height, std::uint32_t stride) {
        Request& request = self(data);
        try {
            request.buffer =
                std::make_unique<ShmBuffer>(request.shm, static_cast<int>(width), static_cast<int>(height),
                                            static_cast<int>(stride), format);
        } catch (const std::bad_alloc&) {
            request.state = State::Failed;
            return;
        }
        request.format = format;
        // Since version 3 further offers may follow, up to an end.
        if (zwlr_screencopy_frame_v1_get_version(frame) < ZWLR_SCREENCOPY_FRAME_V1_BUFFER_DONE_SINCE_VERSION)
            offersEnded(data, frame);
    }
    static void offersEnded(void* data, zwlr_screencopy_frame_v1* frame) {
        Request& request = self(data);
        request.state = request.buffer ? State::Copying : State::Failed;
        if (request.buffer)
            zwlr_screencopy_frame_v1_copy(frame, request.buffer->object());
    }
    static void flags(void* data, zwlr_screencopy_frame_v1*, std::uint32_t flags) {
        self(data).upsideDown = flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT;
    }
    static void ready(void* data, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t) {
        self(data).state = State::Ready;
    }
    static void failed(void* data, zwlr_screencopy_frame_v1*) { self(data).state = State::Failed; }
    static void damaged(void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t,
                        std::uint32_t) {}
    static void offeredDmabuf(void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t) {
    }
    static constexpr zwlr_screencopy_frame_v1_listener listener{offered, flags,         ready,      failed,
                                                                damaged, offeredDmabuf, offersEnded};
};

/// Serves the queue's events until the request is over or its time is.
void waitFor(const Request& request, wl_display* display, wl_event_queue* queue) {
    const auto now = [] { return foundation::RunLoop::main().now(); };
    const double end = now() + limit;
    while (!request.isOver()) {
        if (wl_display_prepare_read_queue(display, queue) != 0) {
            if (wl_display_dispatch_queue_pending(display, queue) < 0)
                return;
            continue;
        }
        wl_display_flush(display);
        const int rest = static_cast<int>(std::ceil((end - now()) * 1000));
        pollfd descriptor{wl_display_get_fd(display), POLLIN, 0};
        if (rest <= 0 || poll(&descriptor, 1, rest) <= 0) {
            wl_display_cancel_read(display);
            return;
        }
        if (wl_display_read_events(display) < 0 || wl_display_dispatch_queue_pending(display, queue) < 0)
            return;
    }
}

/// Whether red and blue have changed places; nothing for a layout that is not known.
std::optional<bool> isRedFirst(std::uint32_t format) {
    switch (format) {
    case WL_SHM_FORMAT_ARGB8888:
    case WL_SHM_FORMAT_XRGB8888:
        return false;
    case WL_SHM_FORMAT_ABGR8888:
    case WL_SHM_FORMAT_XBGR8888:
        return true;
    default:
        return std::nullopt;
    }
}

struct Place {
    int x;
    int y;
};

/// Where on the output, as it is built, the pixel (x, y) of the output as it is turned lies. `width` and
/// `height` are those of the latter.
Place onOutput(int x, int y, int width, int height, int transform) {
    switch (transform) {
    case WL_OUTPUT_TRANSFORM_90:
        return {y, width - 1 - x};
    case WL_OUTPUT_TRANSFORM_180:
        return {width - 1 - x, height - 1 - y};
    case WL_OUTPUT_TRANSFORM_270:
        return {height - 1 - y, x};
    case WL_OUTPUT_TRANSFORM_FLIPPED:
        return {width - 1 - x, y};
    case WL_OUTPUT_TRANSFORM_FLIPPED_90:
        return {y, x};
    case WL_OUTPUT_TRANSFORM_FLIPPED_180:
        return {x, height - 1 - y};
    case WL_OUTPUT_TRANSFORM_FLIPPED_270:
        return {height - 1 - y, width - 1 - x};
    default:
        return {x, y};
    }
}

std::shared_ptr<const Image> upright(const Request& request, const Output& output, double pixelsPerPoint) {
    const auto redFirst = isRedFirst(request.format);
    if (!redFirst)
        return nullptr;
    const PixelBlocks from(request.buffer->view(), static_cast<int>(output.scale() / pixelsPerPoint));
    const bool sideways = output.transform() % 2 == 1;
    const int width = sideways ? from.height() : from.width(),
              height = sideways ? from.width() : from.height();
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    std::uint8_t* out = pixels.data();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x, out += 4) {
            const Place place = onOutput(x, y, width, height, output.transform());
            const std::uint32_t in =
                from.at(place.x, request.upsideDown ? from.height() - 1 - place.y : place.y);
            out[*redFirst ? 2 : 0] = static_cast<std::uint8_t>(in);
            out[1] = static_cast<std::uint8_t>(in >> 8);
            out[*redFirst ? 0 : 2] = static_cast<std::uint8_t>(in >> 16);
            out[3] = 0xFF;
        }
    return std::make_shared<const Image>(width, height, width * 4, std::move(pixels),
                                         output.scale() / from.side());
}

struct WrapperRelease {
    void operator()(zwlr_screencopy_manager_v1* wrapper) const { wl_proxy_wrapper_destroy(wrapper); }
};

} // namespace

std::shared_ptr<const Image> ScreenCapture::take(Connection& connection, const Output& output,
                                                 double pixelsPerPoint) {
    Globals& globals = connection.globals();
    if (!globals.screencopy)
        return nullptr;
    // A queue of its own, so that nothing else of this client runs in the middle of whatever asked.
    const Proxy<wl_event_queue> queue(wl_display_create_queue(connection.display()));
    const std::unique_ptr<zwlr_screencopy_manager_v1, WrapperRelease> manager(
        static_cast<zwlr_screencopy_manager_v1*>(wl_proxy_create_wrapper(globals.screencopy.get())));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(manager.get()), queue.get());
    Request request{*globals.shm, nullptr};
    const Proxy<zwlr_screencopy_frame_v1> frame(
        zwlr_screencopy_manager_v1_capture_output(manager.get(), 0, output.object()));
    zwlr_screencopy_frame_v1_add_listener(frame.get(), &Request::listener, &request);
    waitFor(request, connection.display(), queue.get());
    return request.state == Request::State::Ready ? upright(request, output, pixelsPerPoint) : nullptr;
}

} // namespace session

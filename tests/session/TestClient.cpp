#include "tests/session/TestClient.h"

#include "tests/session/ClientConnection.h"
#include "tests/session/Patience.h"
#include "tests/session/VirtualKeyboard.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <utility>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

#include <wayland-client.h>

#include "virtual-keyboard-unstable-v1-client-protocol.h"
#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"
#include "xdg-shell-client-protocol.h"

namespace tests {

struct TestClient::State {
    explicit State(const std::filesystem::path& socket) : connection(socket) {}

    ClientConnection connection;
    wl_compositor* compositor = take<wl_compositor>(wl_compositor_interface, 4);
    wl_shm* shm = take<wl_shm>(wl_shm_interface);
    wl_seat* seat = take<wl_seat>(wl_seat_interface);
    xdg_wm_base* shell = take<xdg_wm_base>(xdg_wm_base_interface);
    zwlr_virtual_pointer_manager_v1* pointers =
        take<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface);
    zwp_virtual_keyboard_manager_v1* keyboards =
        take<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface);
    zwlr_virtual_pointer_v1* hand = nullptr;
    std::optional<VirtualKeyboard> virtualKeyboard;
    wl_pointer* pointer = nullptr;
    wl_touch* touch = nullptr;
    wl_keyboard* keyboard = nullptr;
    wl_surface* surface = nullptr;
    xdg_surface* shellSurface = nullptr;
    xdg_toplevel* window = nullptr;
    int width = 0, height = 0;
    bool isFull = false, shown = false;
    int screenWidth = 1, screenHeight = 1;
    double x = 0, y = 0;
    std::vector<std::string> presses;
    std::vector<std::string> touches;
    std::vector<unsigned> keys;
    bool hasKeyboard = false;

    static State& self(void* data) { return *static_cast<State*>(data); }
    template <class Object>
    Object* take(const wl_interface& interface, std::uint32_t version = 1) {
        return connection.keep(connection.bind<Object>(interface, version));
    }

    void closeWindow();
    void showBuffer();
    void listenToSeat();
    void listenToPointer();
    void listenToTouch();
    void listenToKeyboard();
};

namespace {

std::string place(double x, double y) {
    return std::to_string(std::lround(x)) + "," + std::to_string(std::lround(y));
}

} // namespace

void TestClient::State::listenToSeat() {
    static constexpr wl_seat_listener listener{
        [](void* data, wl_seat*, std::uint32_t capabilities) {
            if ((capabilities & WL_SEAT_CAPABILITY_POINTER) && !self(data).pointer)
                self(data).listenToPointer();
            if ((capabilities & WL_SEAT_CAPABILITY_TOUCH) && !self(data).touch)
                self(data).listenToTouch();
            if ((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) && !self(data).keyboard)
                self(data).listenToKeyboard();
        },
        nullptr};
    wl_seat_add_listener(seat, &listener, this);
}

void TestClient::State::listenToPointer() {
    static constexpr wl_pointer_listener listener{
        .enter =
            [](void* data, wl_pointer*, std::uint32_t, wl_surface*, wl_fixed_t x, wl_fixed_t y) {
                self(data).x = wl_fixed_to_double(x);
                self(data).y = wl_fixed_to_double(y);
            },
        .leave = [](void*, wl_pointer*, std::uint32_t, wl_surface*) {},
        .motion =
            [](void* data, wl_pointer*, std::uint32_t, wl_fixed_t x, wl_fixed_t y) {
                self(data).x = wl_fixed_to_double(x);
                self(data).y = wl_fixed_to_double(y);
            },
        .button =
            [](void* data, wl_pointer*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t state) {
                if (state == WL_POINTER_BUTTON_STATE_PRESSED)
                    self(data).presses.push_back(place(self(data).x, self(data).y));
            },
        .axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {},
        .frame = nullptr,
        .axis_source = nullptr,
        .axis_stop = nullptr,
        .axis_discrete = nullptr,
        .axis_value120 = nullptr};
    pointer = connection.keep(wl_seat_get_pointer(seat));
    wl_pointer_add_listener(pointer, &listener, this);
}

void TestClient::State::listenToTouch() {
    static constexpr wl_touch_listener listener{
        .down =
            [](void* data, wl_touch*, std::uint32_t, std::uint32_t, wl_surface*, std::int32_t, wl_fixed_t x,
               wl_fixed_t y) {
                self(data).touches.push_back(place(wl_fixed_to_double(x), wl_fixed_to_double(y)));
            },
        .up = [](void*, wl_touch*, std::uint32_t, std::uint32_t, std::int32_t) {},
        .motion = [](void*, wl_touch*, std::uint32_t, std::int32_t, wl_fixed_t, wl_fixed_t) {},
        .frame = [](void*, wl_touch*) {},
        .cancel = [](void*, wl_touch*) {},
        .shape = nullptr,
        .orientation = nullptr};
    touch = connection.keep(wl_seat_get_touch(seat));
    wl_touch_add_listener(touch, &listener, this);
}

void TestClient::State::listenToKeyboard() {
    static constexpr wl_keyboard_listener listener{
        .keymap = [](void*, wl_keyboard*, std::uint32_t, int file, std::uint32_t) { close(file); },
        .enter = [](void* data, wl_keyboard*, std::uint32_t, wl_surface*,
                    wl_array*) { self(data).hasKeyboard = true; },
        .leave = [](void* data, wl_keyboard*, std::uint32_t, wl_surface*) { self(data).hasKeyboard = false; },
        .key =
            [](void* data, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t key,
               std::uint32_t state) {
                if (state == WL_KEYBOARD_KEY_STATE_PRESSED)
                    self(data).keys.push_back(key);
            },
        .modifiers = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
                        std::uint32_t) {},
        .repeat_info = nullptr};
    keyboard = connection.keep(wl_seat_get_keyboard(seat));
    wl_keyboard_add_listener(keyboard, &listener, this);
}

TestClient::TestClient(const std::filesystem::path& runtimeDirectory, const std::string& display)
    : state_(std::make_unique<State>(runtimeDirectory / display)) {
    State& state = *state_;
    if (!state.pointers || !state.seat || !state.shell)
        throw std::runtime_error("the compositor lacks what the test needs");
    state.listenToSeat();
    state.hand = state.connection.keep(
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(state.pointers, state.seat));
    state.connection.roundTrip(); // brings the capabilities
    state.connection.roundTrip();
}

TestClient::~TestClient() {
    state_->virtualKeyboard.reset();
    state_->closeWindow();
}

void TestClient::State::showBuffer() {
    shown = false;
    const int bytes = width * height * 4;
    const int file = memfd_create("test-client", MFD_CLOEXEC);
    if (ftruncate(file, bytes) != 0)
        throw std::runtime_error("no memory for a window");
    void* memory =
        mmap(nullptr, static_cast<std::size_t>(bytes), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    std::memset(memory, 0xE0, static_cast<std::size_t>(bytes));
    munmap(memory, static_cast<std::size_t>(bytes));
    wl_shm_pool* pool = wl_shm_create_pool(shm, file, bytes);
    wl_buffer* buffer =
        connection.keep(wl_shm_pool_create_buffer(pool, 0, width, height, width * 4, WL_SHM_FORMAT_XRGB8888));
    wl_shm_pool_destroy(pool);
    close(file);
    wl_surface_attach(surface, buffer, 0, 0);
    wl_surface_damage(surface, 0, 0, width, height);
    static constexpr wl_callback_listener frameListener{
        [](void* data, wl_callback*, std::uint32_t) { self(data).shown = true; }};
    wl_callback_add_listener(connection.keep(wl_surface_frame(surface)), &frameListener, this);
    wl_surface_commit(surface);
}

void TestClient::openWindow(const std::string& application) {
    State& state = *state_;
    static constexpr xdg_wm_base_listener shellListener{
        [](void*, xdg_wm_base* shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); }};
    static constexpr xdg_surface_listener surfaceListener{
        [](void* data, xdg_surface* surface, std::uint32_t serial) {
            xdg_surface_ack_configure(surface, serial);
            State::self(data).showBuffer();
        }};
    static constexpr xdg_toplevel_listener windowListener{
        [](void* data, xdg_toplevel*, int width, int height, wl_array*) {
            // At first the compositor leaves the size open.
            State::self(data).isFull = width > 0 && height > 0;
            State::self(data).width = std::max(width, 1);
            State::self(data).height = std::max(height, 1);
        },
        [](void*, xdg_toplevel*) {}, nullptr, nullptr};
    xdg_wm_base_add_listener(state.shell, &shellListener, &state);
    state.surface = wl_compositor_create_surface(state.compositor);
    state.shellSurface = xdg_wm_base_get_xdg_surface(state.shell, state.surface);
    xdg_surface_add_listener(state.shellSurface, &surfaceListener, &state);
    state.window = xdg_surface_get_toplevel(state.shellSurface);
    xdg_toplevel_add_listener(state.window, &windowListener, &state);
    xdg_toplevel_set_app_id(state.window, application.c_str());
    state.isFull = state.shown = false;
    wl_surface_commit(state.surface);
    if (!eventually([&] { return state.isFull && state.shown; }, [this] { serve(); }))
        throw std::runtime_error("the window was not shown");
}

void TestClient::State::closeWindow() {
    if (!window)
        return;
    xdg_toplevel_destroy(std::exchange(window, nullptr));
    xdg_surface_destroy(shellSurface);
    wl_surface_destroy(surface);
}

void TestClient::closeWindow() {
    state_->closeWindow();
    serve();
}

std::vector<std::string> TestClient::presses() {
    serve();
    return state_->presses;
}

std::vector<std::string> TestClient::touches() {
    serve();
    return state_->touches;
}

bool TestClient::hasKeyboard() {
    serve();
    return state_->hasKeyboard;
}

std::vector<unsigned> TestClient::keys() {
    serve();
    return state_->keys;
}

void TestClient::setScreen(int width, int height) {
    state_->screenWidth = width;
    state_->screenHeight = height;
}

void TestClient::moveTo(double x, double y, unsigned time) {
    // Extents in hundredths of a point, for places between them.
    constexpr int fine = 100;
    zwlr_virtual_pointer_v1_motion_absolute(state_->hand, time,
                                            static_cast<std::uint32_t>(std::lround(x * fine)),
                                            static_cast<std::uint32_t>(std::lround(y * fine)),
                                            static_cast<std::uint32_t>(state_->screenWidth * fine),
                                            static_cast<std::uint32_t>(state_->screenHeight * fine));
    zwlr_virtual_pointer_v1_frame(state_->hand);
    serve();
}

void TestClient::press(unsigned time) {
    zwlr_virtual_pointer_v1_button(state_->hand, time, BTN_LEFT, WL_POINTER_BUTTON_STATE_PRESSED);
    zwlr_virtual_pointer_v1_frame(state_->hand);
    serve();
}

void TestClient::release(unsigned time) {
    zwlr_virtual_pointer_v1_button(state_->hand, time, BTN_LEFT, WL_POINTER_BUTTON_STATE_RELEASED);
    zwlr_virtual_pointer_v1_frame(state_->hand);
    serve();
}

void TestClient::addKeyboard(const std::string& layout) {
    state_->virtualKeyboard.emplace(*state_->keyboards, *state_->seat, layout);
    serve();
}

void TestClient::pressKey(unsigned key) {
    state_->virtualKeyboard->press(key);
    serve();
}

void TestClient::releaseKey(unsigned key) {
    state_->virtualKeyboard->release(key);
    serve();
}

void TestClient::serve() {
    state_->connection.roundTrip();
}

} // namespace tests

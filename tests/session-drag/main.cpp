// session-drag: a hand for measurements. Connects to the compositor of the environment and drags the pointer.
//
//     session-drag WIDTH HEIGHT FROM TO STEPS        points of the screen, sixty steps a second
#include "tests/session/TestClient.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

unsigned now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<unsigned>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::fputs("usage: session-drag WIDTH HEIGHT FROM TO STEPS\n", stderr);
        return 2;
    }
    const double from = std::atof(argv[3]), to = std::atof(argv[4]);
    const int steps = std::atoi(argv[5]), height = std::atoi(argv[2]);
    tests::TestClient client(std::getenv("XDG_RUNTIME_DIR"), std::getenv("WAYLAND_DISPLAY"));
    client.setScreen(std::atoi(argv[1]), height);
    std::this_thread::sleep_for(std::chrono::milliseconds(300)); // until the pointer is known
    client.moveTo(from, height / 2.0, now());
    client.press(now());
    for (int i = 1; i <= steps; ++i) {
        std::this_thread::sleep_for(std::chrono::microseconds(16'667));
        client.moveTo(from + (to - from) * i / steps, height / 2.0, now());
    }
    client.release(now());
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
}

// session-drag: a hand for measurements. Connects to the compositor of the environment and drags the pointer.
//
//     session-drag WIDTH HEIGHT FROM TO STEPS        points of the screen, sixty steps a second
//     session-drag first left|right WIDTH HEIGHT     prints after how many frames a panel is seen, and after
//                                                    how many milliseconds
#include "tests/session/FirstFrame.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

using namespace tests;

unsigned now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<unsigned>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

/// A pointer that the compositor's clients have heard of.
std::unique_ptr<TestClient> makeHand(int width, int height) {
    auto hand = std::make_unique<TestClient>(std::getenv("XDG_RUNTIME_DIR"), std::getenv("WAYLAND_DISPLAY"));
    hand->setScreen(width, height);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    return hand;
}

void drag(int width, int height, double from, double to, int steps) {
    const auto hand = makeHand(width, height);
    hand->moveTo(from, height / 2.0, now());
    hand->press(now());
    for (int i = 1; i <= steps; ++i) {
        std::this_thread::sleep_for(std::chrono::microseconds(16'667));
        hand->moveTo(from + (to - from) * i / steps, height / 2.0, now());
    }
    hand->release(now());
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
}

void printFirstFrame(Edge edge, int width, int height) {
    const auto hand = makeHand(width, height);
    FrameWatch watch(std::getenv("XDG_RUNTIME_DIR"), std::getenv("WAYLAND_DISPLAY"));
    const FirstFrame first = pullFirstFrame(*hand, watch, edge, width);
    std::printf("%d %.1f\n", first.frames, first.milliseconds);
}

int printUsage() {
    std::fputs("usage: session-drag WIDTH HEIGHT FROM TO STEPS\n"
               "       session-drag first left|right WIDTH HEIGHT\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const auto number = [argv](int index) { return std::atoi(argv[index]); };
    if (argc == 5 && std::string(argv[1]) == "first")
        printFirstFrame(std::string(argv[2]) == "left" ? Edge::Left : Edge::Right, number(3), number(4));
    else if (argc == 6)
        drag(number(1), number(2), number(3), number(4), number(5));
    else
        return printUsage();
    return 0;
}

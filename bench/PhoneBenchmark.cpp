// What the product costs in a running phone: a pass of the availability cycle, a step of a drag, the choice
// of the automatic blur, and a phone that nobody touches. 375 × 667 points at 2 pixels a point.
#include "bench/Percentiles.h"
#include "hosts/phone/Phone.h"
#include "hosts/device/DeviceRoot.h"
#include "hosts/device/ExtensionLoader.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/runtime/Message.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <ctime>

using foundation::PropertyList;
using toolkit::WindowServer;

namespace {

constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/org.lanternhub.vela3.plist";

/// Sixty keys, as someone has them who has switched the product off in many applications.
PropertyList::Dictionary sixtyPreferences() {
    PropertyList::Dictionary values{{"Enable", true},
                                    {"Blur", "auto"},
                                    {"Grabber height", "full"},
                                    {"Sensibility", "normal"},
                                    {"Autoscroll", true},
                                    {"left_size_portrait", 0.8},
                                    {"left_size_landscape", 0.5},
                                    {"right_size_portrait", 0.8},
                                    {"right_size_landscape", 0.5}};
    for (int i = 0; values.size() < 60; ++i)
        values["com.example.application" + std::to_string(i)] = i % 2 == 0;
    return values;
}

/// The one phone of this process, launched with the extension.
struct RunningPhone {
    RunningPhone() : root(std::nullopt) {
        foundation::setLogToStandardError(false);
        foundation::RunLoop::setMain(&loop);
        root.fill(std::filesystem::path(VELA_SOURCE_DIR) / "resources");
        foundation::FileManager::shared().writeDictionaryAtomically(preferencesPath, sixtyPreferences());
        phone = std::make_unique<phone::Phone>(phone::PhoneConfiguration{});
        device::loadExtension(std::filesystem::path(VELA_BINARY_DIR) / "lib/Vela3.dylib");
        phone->launch();
        loop.advance(2);
        WindowServer::shared().composeFrame();
    }
    static RunningPhone& shared() {
        static auto& running = *new RunningPhone; // a phone is never torn down
        return running;
    }

    foundation::VirtualRunLoop loop;
    device::DeviceRoot root;
    std::unique_ptr<phone::Phone> phone;
};

void AvailabilityPass(benchmark::State& state) {
    auto& running = RunningPhone::shared();
    const runtime::Message<void()> velaCycler{"velaCycler"};
    bench::Percentiles percentiles;
    const auto changes = toolkit::Layer::changeCount();
    for (auto _ : state)
        percentiles.measure(state, [&] { velaCycler(running.phone->springBoard()); });
    percentiles.report(state);
    if (toolkit::Layer::changeCount() != changes || WindowServer::shared().needsFrame())
        state.SkipWithError("a pass without news has changed something on screen");
}
BENCHMARK(AvailabilityPass)->UseManualTime()->Unit(benchmark::kMillisecond);

void DragStep(benchmark::State& state) {
    auto& running = RunningPhone::shared();
    bench::Percentiles percentiles;
    const double left = 90, right = 340;
    double x = 370, direction = -1;
    running.phone->touchDown(1, {x, 300});
    for (auto _ : state) {
        running.loop.advance(foundation::RunLoop::frameInterval);
        if (x + 5 * direction < left || x + 5 * direction > right + 30)
            direction = -direction;
        x += 5 * direction;
        percentiles.measure(state, [&] {
            running.phone->touchMove(1, {x, 300});
            running.loop.turn();
            WindowServer::shared().composeFrame();
        });
    }
    running.phone->touchUp(1);
    running.loop.advance(1);
    WindowServer::shared().composeFrame();
    percentiles.report(state);
}
BENCHMARK(DragStep)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2);

void AutomaticBlur(benchmark::State& state) {
    auto& running = RunningPhone::shared();
    bench::Percentiles percentiles;
    // What choosing costs is what a pull's first callback costs more than one with a fixed style: the picture
    // of the screen and its reduction to one colour.
    const runtime::Message<std::shared_ptr<const toolkit::Image>()> getScreenImage{"getScreenImage"};
    for (auto _ : state)
        percentiles.measure(state, [&] {
            const auto image = getScreenImage(running.phone->springBoard());
            benchmark::DoNotOptimize(image->reducedTo(1, 1));
        });
    percentiles.report(state);
}
BENCHMARK(AutomaticBlur)->UseManualTime()->Unit(benchmark::kMillisecond);

/// An hour in which nobody touches the phone: frames beyond the clock's own (one a minute), and how much of
/// one core the hour's work would take.
void IdlePhone(benchmark::State& state) {
    auto& running = RunningPhone::shared();
    constexpr int seconds = 3600;
    int frames = 0;
    double busy = 0;
    for (auto _ : state) {
        const std::clock_t begin = std::clock();
        for (int second = 0; second < seconds; ++second) {
            running.loop.advance(1);
            if (WindowServer::shared().needsFrame() && !WindowServer::shared().composeFrame().damage.empty())
                ++frames;
        }
        busy += static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    }
    const double hours = static_cast<double>(state.iterations());
    state.counters["frames"] = std::max(0.0, frames / hours - seconds / 60.0);
    state.counters["core_percent"] = 100 * busy / (hours * seconds);
}
BENCHMARK(IdlePhone)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

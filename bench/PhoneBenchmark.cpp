// What the product costs in a running phone: a pass of the availability cycle, a step of a drag, the choice
// of the automatic blur, and a phone that nobody touches. 375 × 667 points at 2 pixels a point.
#include "bench/Percentiles.h"
#include "bench/RunningPhone.h"
#include "platform/runtime/Message.h"

#include <ctime>

using bench::RunningPhone;
using toolkit::WindowServer;

namespace {

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

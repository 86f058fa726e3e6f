// What the product costs in a running phone: a pass of the availability cycle, a step of a drag, the choice
// of the automatic blur, and a phone that nobody touches. 375 × 667 points at 2 pixels a point.
#include "bench/IdleHours.h"
#include "bench/Percentiles.h"
#include "platform/runtime/Message.h"

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

void IdlePhone(benchmark::State& state) {
    bench::measureIdleHours(state, RunningPhone::shared());
}
BENCHMARK(IdlePhone)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

// The board with the five first-party plug-ins: a frame of the opening animation, and what they cost once all
// of them have been opened and the panel is closed. 375 × 667 points at 2 pixels a point.
#include "bench/BoardPhone.h"
#include "bench/IdleHours.h"
#include "bench/Percentiles.h"

using bench::RunningPhone;
using toolkit::WindowServer;

namespace {

constexpr double openingSeconds = 0.8;

RunningPhone& phoneWithOpenBoard() {
    static auto& running = []() -> RunningPhone& {
        auto& phone = RunningPhone::shared();
        std::filesystem::copy(bench::firstPartyPlugIns(), bench::plugInDirectory(phone),
                              std::filesystem::copy_options::recursive);
        bench::beginPull(phone);
        bench::finishPull(phone);
        return phone;
    }();
    return running;
}

void scrollToTile(RunningPhone& running, int index) {
    const auto board = bench::board();
    const double step = board->contentSize().height / bench::tileCount();
    board->setContentOffset({0, index * step});
    running.settle(0.1);
}

/// A drag on the title that closes what is open.
void closeTile(RunningPhone& running) {
    running.phone->touchDown(1, {140, 40});
    for (double y = 60; y <= 600; y += 60) {
        running.loop.advance(foundation::RunLoop::frameInterval);
        running.phone->touchMove(1, {140, y});
    }
    running.loop.advance(0.2);
    running.phone->touchUp(1);
    running.settle(1);
}

void OpeningFrame(benchmark::State& state) {
    auto& running = phoneWithOpenBoard();
    bench::Percentiles percentiles;
    double left = 0;
    for (auto _ : state) {
        if (left <= 0) {
            if (bench::openTiles() != 0)
                closeTile(running);
            scrollToTile(running, 4); // the system's graphs
            bench::tap(running, {140, 200});
            left = openingSeconds;
        }
        left -= foundation::RunLoop::frameInterval;
        percentiles.measure(state, [&] {
            running.loop.advance(foundation::RunLoop::frameInterval);
            WindowServer::shared().composeFrame();
        });
    }
    running.settle(1);
    percentiles.report(state);
    if (bench::tileCount() != 5 || bench::openTiles() != 5)
        state.SkipWithError("the tiles have not opened");
    closeTile(running);
}
BENCHMARK(OpeningFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(480);

/// The panel is closed after every plug-in has been opened.
void ClosedPanel(benchmark::State& state) {
    auto& running = phoneWithOpenBoard();
    for (int index = 0; index < bench::tileCount(); ++index) {
        scrollToTile(running, index);
        bench::tap(running, {140, 200});
        running.settle(1);
        if (bench::openTiles() != bench::tileCount())
            state.SkipWithError("a plug-in has not opened");
        if (index < bench::tileCount() - 1)
            closeTile(running);
    }
    bench::tap(running, {360, 300});
    running.settle(1);
    bench::measureIdleHours(state, running);
}
BENCHMARK(ClosedPanel)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

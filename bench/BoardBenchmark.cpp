// The board with 200 plug-ins: the pull that finds them, and scrolling over them. 375 × 667 points at 2
// pixels a point.
#include "bench/BoardPhone.h"
#include "bench/Percentiles.h"

using bench::RunningPhone;

namespace {

constexpr int plugIns = 200;

/// Plug-ins with an icon each; they are never opened.
void installMany(const RunningPhone& running) {
    const auto directory = bench::plugInDirectory(running);
    for (int i = 0; i < plugIns; ++i) {
        const std::string name = "plugin" + std::to_string(i);
        std::filesystem::create_directories(directory / name);
        const std::string source = i % 2 ? "Notes.bundle" : "Calculator.bundle";
        std::filesystem::copy(bench::firstPartyPlugIns() / source / "icon@2x.png",
                              directory / name / "icon@2x.png");
        const std::string path = "/Library/Application Support/Vela/Plugins/" + name;
        foundation::FileManager::shared().writeDictionaryAtomically(
            path + "/Info.plist", {{"CFBundleIdentifier", "org.example." + name},
                                   {"display_name", "Plug-in " + std::to_string(i)},
                                   {"icon", path + "/icon.png"}});
    }
}

void LoadApps(benchmark::State& state) {
    auto& running = RunningPhone::shared();
    installMany(running);
    bench::Percentiles percentiles;
    for (auto _ : state)
        percentiles.measure(state, [&] { bench::beginPull(running); });
    percentiles.report(state);
    bench::finishPull(running);
    if (bench::tileCount() != plugIns)
        state.SkipWithError("the board has not found its plug-ins");
}
// A board looks for plug-ins but once.
BENCHMARK(LoadApps)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void ScrollBoard(benchmark::State& state) {
    auto& running = RunningPhone::shared();
    bench::Percentiles percentiles;
    double y = 600;
    running.phone->touchDown(1, {140, y});
    for (auto _ : state) {
        if (y <= 60) {
            running.phone->touchUp(1);
            running.settle(0.05);
            y = 600;
            running.phone->touchDown(1, {140, y});
        }
        y -= 12;
        running.loop.advance(foundation::RunLoop::frameInterval);
        percentiles.measure(state, [&] { running.step({140, y}); });
    }
    running.phone->touchUp(1);
    running.settle(3);
    percentiles.report(state);
    if (bench::board()->contentOffset().y < 1000)
        state.SkipWithError("the board has not been scrolled");
}
BENCHMARK(ScrollBoard)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(600);

} // namespace

BENCHMARK_MAIN();

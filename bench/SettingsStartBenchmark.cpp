// How long the settings take from their start to the first page painted: the colours on the display say when.
#include "bench/Percentiles.h"
#include "tests/support/BackgroundProcess.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>

#include <unistd.h>

namespace {

using support::BackgroundProcess;

/// A display whose pixels lie in a file.
class VisibleDisplay {
public:
    VisibleDisplay() {
        int output = -1;
        server_ = std::make_unique<BackgroundProcess>(
            std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0", "640x900x24", "-nolisten",
                                     "tcp", "-fbdir", directory_.path()},
            std::vector<std::string>{}, &output);
        for (char c = 0; server_->started() && ::read(output, &c, 1) == 1 && c != '\n';)
            name_ += c;
        close(output);
    }
    bool started() const { return !name_.empty(); }
    std::string name() const { return ":" + name_; }

    /// Whether a run of pixels of this colour (blue, green, red, and the byte that is not seen) is on the
    /// display.
    bool shows(std::string_view color) const {
        std::ifstream file(directory_.path() / "Xvfb_screen0", std::ios::binary);
        const std::string pixels{std::istreambuf_iterator<char>(file), {}};
        std::string run;
        for (int pixel = 0; pixel < 8; ++pixel)
            run += color;
        return pixels.find(run) != std::string::npos;
    }

private:
    tests::TemporaryDirectory directory_;
    std::unique_ptr<BackgroundProcess> server_;
    std::string name_;
};

/// The tint of a switch that is on: the first page holds one.
constexpr std::string_view tint{"\x5F\x48\xFF\xFF", 4};
constexpr double longestStart = 20; // seconds

/// Seconds; below 0 when the page does not come.
double secondsToFirstPage(const VisibleDisplay& display, const std::string& root,
                          const std::vector<std::string>& environment) {
    const auto begin = std::chrono::steady_clock::now();
    const BackgroundProcess program({VELA_BINARY_DIR "/bin/vela-settings", "--root", root}, environment);
    std::chrono::duration<double> elapsed{0};
    while (elapsed.count() < longestStart) {
        elapsed = std::chrono::steady_clock::now() - begin;
        if (display.shows(tint))
            return elapsed.count();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return -1;
}

void SettingsStart(benchmark::State& state) {
    const VisibleDisplay display;
    if (!display.started())
        return state.SkipWithError("Xvfb is not installed");
    const tests::TemporaryDirectory directory;
    const std::string root = directory.path() / "root";
    const std::vector<std::string> environment{"DISPLAY=" + display.name(), "GDK_BACKEND=x11",
                                               "HOME=" + directory.path().string(),
                                               "GSETTINGS_BACKEND=memory"};
    support::ChildProcess::run(
        {VELA_BINARY_DIR "/bin/vela-phone", "--root", root, "--set", "tutorial", "bool", "true"},
        environment);
    bench::Percentiles percentiles;
    for (auto _ : state) {
        const double seconds = secondsToFirstPage(display, root, environment);
        if (seconds < 0)
            return state.SkipWithError("the first page does not come");
        percentiles.add(state, seconds);
        while (display.shows(tint)) // of the program that has just been ended
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    percentiles.report(state);
}
BENCHMARK(SettingsStart)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(12);

} // namespace

BENCHMARK_MAIN();

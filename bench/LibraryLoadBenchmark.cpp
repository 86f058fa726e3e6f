// How long a home screen waits for the product: from the loading of Vela3.dylib to the end of the first
// availability pass, without the host's own launch. Each measurement takes a fresh process.
#include "bench/Percentiles.h"
#include "hosts/device/DeviceRoot.h"
#include "hosts/device/ExtensionLoader.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/ProcessInfo.h"
#include "tests/support/TestHost.h"

#include <sys/wait.h>
#include <unistd.h>

namespace {

double secondsToLoad() {
    foundation::setLogToStandardError(false);
    foundation::VirtualRunLoop loop;
    foundation::RunLoop::setMain(&loop);
    const device::DeviceRoot root(std::nullopt);
    root.fill(std::filesystem::path(VELA_SOURCE_DIR) / "resources/device");
    foundation::ProcessInfo::shared().mainBundleIdentifier = "com.apple.springboard";
    tests::TestHost host;
    const auto begin = std::chrono::steady_clock::now();
    device::loadExtension(std::filesystem::path(VELA_BINARY_DIR) / "lib/Vela3.dylib");
    host.springBoard->applicationDidFinishLaunching(host.springBoard.get());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Below 0 when the process failed.
double measureInFreshProcess() {
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        const double seconds = secondsToLoad();
        const bool written = write(ends[1], &seconds, sizeof seconds) == sizeof seconds;
        _exit(written ? 0 : 1);
    }
    close(ends[1]);
    double seconds = -1;
    if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds)
        seconds = -1;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return seconds;
}

void LibraryLoad(benchmark::State& state) {
    bench::Percentiles percentiles;
    for (auto _ : state) {
        const double seconds = measureInFreshProcess();
        if (seconds < 0) {
            state.SkipWithError("the process that loads the library failed");
            return;
        }
        percentiles.add(state, seconds);
    }
    percentiles.report(state);
}
BENCHMARK(LibraryLoad)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

BENCHMARK_MAIN();

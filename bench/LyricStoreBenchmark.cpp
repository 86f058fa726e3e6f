// What a look-up and a change cost in a lyric store of 5,000 lyrics, and what of it is the file's format.
//
// The store keeps nothing in memory: each look-up reads the file, whose 10 MB take about 1 ms to read and 20
// to 30 to take apart. As a binary list the file would be twice as large, since that form has 16-bit
// characters for every text with an accent in it, and would not be taken apart any faster.
#include "bench/Percentiles.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/PropertyListCoding.h"
#include "tests/support/TemporaryDirectory.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

#include <benchmark/benchmark.h>

namespace {

using foundation::FileManager;
using foundation::PropertyList;
using vela::VelaSettingsManager;

constexpr int songs = 5000;
constexpr std::size_t lyricLength = 2000; // bytes

/// Lines of words with an accent and an ampersand here and there, no two songs alike.
std::string lyricOf(int song) {
    std::string text;
    for (int line = 0; text.size() < lyricLength; ++line)
        text += "Line " + std::to_string(line) + " of song " + std::to_string(song) +
                (line % 8 == 0 ? ", voil\xC3\xA0 & so on\n" : ", and so it goes on and on\n");
    text.resize(lyricLength);
    return text;
}

/// A device whose store is full.
struct Device {
    Device() {
        auto& files = FileManager::shared();
        files.setDeviceRoot(directory.path());
        files.createDirectories(vela::paths::data);
        PropertyList::Dictionary lyrics;
        for (int song = 0; song < songs; ++song)
            lyrics["Song " + std::to_string(song) + "_Band"] = lyricOf(song);
        files.writeDictionaryAtomically(vela::paths::lyrics, lyrics);
        // A first change leaves the file as the store itself writes it.
        store.addLyric(lyricOf(songs), "Song", "Band");
    }
    tests::TemporaryDirectory directory;
    VelaSettingsManager& store = VelaSettingsManager::sharedInstance();
};

void LyricLookup(benchmark::State& state) {
    const Device device;
    bench::Percentiles times;
    for (auto _ : state)
        times.measure(state, [&] {
            if (!device.store.getLyricForSongName("Song 4000", "Band"))
                state.SkipWithError("the lyric is gone");
        });
    times.report(state);
}
BENCHMARK(LyricLookup)->UseManualTime()->Unit(benchmark::kMillisecond);

void readFile(benchmark::State& state) {
    const Device device;
    for (auto _ : state)
        benchmark::DoNotOptimize(FileManager::shared().read(vela::paths::lyrics));
}
BENCHMARK(readFile)->Unit(benchmark::kMillisecond);

void decodeStoredForm(benchmark::State& state) {
    const Device device;
    const auto bytes = FileManager::shared().read(vela::paths::lyrics).value();
    state.counters["megabytes"] = static_cast<double>(bytes.size()) / 1e6;
    for (auto _ : state)
        benchmark::DoNotOptimize(foundation::decodePropertyList(bytes));
}
BENCHMARK(decodeStoredForm)->Unit(benchmark::kMillisecond);

void decodeXmlForm(benchmark::State& state) {
    const Device device;
    const std::string text = foundation::encodePropertyList(device.store.getLyrics().value());
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    for (auto _ : state)
        benchmark::DoNotOptimize(foundation::decodePropertyList(bytes));
}
BENCHMARK(decodeXmlForm)->Unit(benchmark::kMillisecond);

void addLyric(benchmark::State& state) {
    const Device device;
    for (auto _ : state)
        device.store.addLyric("a new one", "Song", "Band");
}
BENCHMARK(addLyric)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

// What one look at the preferences file costs: the availability cycle takes a dozen of them twice a second,
// and nothing is kept from one to the next.
#include "platform/foundation/FileManager.h"
#include "platform/foundation/PropertyListCoding.h"

#include "tests/support/TemporaryDirectory.h"

#include <benchmark/benchmark.h>

namespace {

using foundation::FileManager;
using foundation::PropertyList;

constexpr const char* path = "/var/mobile/Library/Preferences/settings.plist";

PropertyList::Dictionary sixtyKeys() {
    PropertyList::Dictionary entries;
    for (int index = 0; index < 20; ++index) {
        const std::string number = std::to_string(index);
        entries["Switch " + number] = index % 2 == 0;
        entries["Measure " + number] = 0.01 * index;
        entries["Keyword " + number] = "automatic";
    }
    return entries;
}

/// A device with nothing but the preferences file on it.
struct Device {
    Device() {
        files.setDeviceRoot(directory.path());
        files.createDirectories("/var/mobile/Library/Preferences");
        files.writeDictionaryAtomically(path, sixtyKeys());
    }
    tests::TemporaryDirectory directory;
    FileManager files;
};

void readFile(benchmark::State& state) {
    const Device device;
    for (auto _ : state)
        benchmark::DoNotOptimize(device.files.read(path));
}
BENCHMARK(readFile)->Unit(benchmark::kMicrosecond);

void decodeBytes(benchmark::State& state) {
    const Device device;
    const auto bytes = device.files.read(path).value();
    for (auto _ : state)
        benchmark::DoNotOptimize(foundation::decodePropertyList(bytes));
}
BENCHMARK(decodeBytes)->Unit(benchmark::kMicrosecond);

void readPreferences(benchmark::State& state) {
    const Device device;
    for (auto _ : state)
        benchmark::DoNotOptimize(device.files.readDictionary(path));
}
BENCHMARK(readPreferences)->Unit(benchmark::kMicrosecond);

void writePreferences(benchmark::State& state) {
    const Device device;
    const auto entries = sixtyKeys();
    for (auto _ : state)
        device.files.writeDictionaryAtomically(path, entries);
}
BENCHMARK(writePreferences)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();

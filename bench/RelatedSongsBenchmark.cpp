// What a track change asks of a media library of 100,000 songs: the song itself, by its identifier, and the
// songs related to it. Both walk through all of the library.
#include "bench/LibraryPort.h"
#include "bench/Percentiles.h"
#include "platform/foundation/FileManager.h"
#include "tests/support/TemporaryDirectory.h"
#include "vela/nowplaying/velaItemsManager.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

namespace {

constexpr int songs = 100'000;
constexpr int playing = 77'777;

struct Device {
    Device() {
        foundation::FileManager::shared().setDeviceRoot(directory.path());
        foundation::FileManager::shared().createDirectories("/var/mobile/Library/Preferences");
    }
    void loadSongsWith(const char* choice) {
        vela::VelaSettingsManager::sharedInstance().setPreference(choice, vela::keys::loadSongsWith);
    }
    tests::TemporaryDirectory directory;
    bench::LibraryPort library{songs};
    vela::velaItemsManager& items = vela::velaItemsManager::sharedInstance();
};

void relatedSongs(benchmark::State& state, const char* choice, const std::string& key, std::size_t expected) {
    Device device;
    device.loadSongsWith(choice);
    const auto first = device.library.songs()->at(playing - 1);
    bench::Percentiles percentiles;
    for (auto _ : state)
        percentiles.measure(state, [&] {
            if (device.items.getAllSongsWithKey(key, first).size() != expected)
                state.SkipWithError("these are not the related songs");
        });
    percentiles.report(state);
}

void RelatedByArtist(benchmark::State& state) {
    relatedSongs(state, "artist", bench::LibraryPort::artistOf(playing), songs / 100);
}
BENCHMARK(RelatedByArtist)->UseManualTime()->Unit(benchmark::kMillisecond);

void RelatedByAlbum(benchmark::State& state) {
    relatedSongs(state, "album", bench::LibraryPort::albumOf(playing), 12);
}
BENCHMARK(RelatedByAlbum)->UseManualTime()->Unit(benchmark::kMillisecond);

void SongByIdentifier(benchmark::State& state) {
    Device device;
    bench::Percentiles percentiles;
    for (auto _ : state)
        percentiles.measure(state, [&] {
            if (!device.items.getMediaItemByIdentifier(playing))
                state.SkipWithError("the song is gone");
        });
    percentiles.report(state);
}
BENCHMARK(SongByIdentifier)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

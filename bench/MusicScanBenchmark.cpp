// A music library of 100,000 files, read for the first time and at every later start: how long the main
// thread is held up at most by a turn of its loop meanwhile, and how long all of it takes.
#include "hosts/media/library/IndexedMusicLibrary.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/GlibRunLoop.h"
#include "platform/foundation/Log.h"
#include "tests/support/TemporaryDirectory.h"

#include <benchmark/benchmark.h>
#include <glib.h>

#include <algorithm>
#include <ctime>
#include <memory>

namespace {

constexpr int fileCount = 100'000;
constexpr int filesInDirectory = 500;

/// The project's own songs, over and over; links, since the disk need not hold them as often.
class ManyFiles {
public:
    ManyFiles() {
        std::vector<std::filesystem::path> songs;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(VELA_SOURCE_DIR "/resources/music/songs"))
            if (entry.is_regular_file())
                songs.push_back(copy(entry.path(), songs.size()));
        for (int index = 0; index < fileCount; ++index) {
            const auto folder = music() / std::to_string(index / filesInDirectory);
            if (index % filesInDirectory == 0)
                std::filesystem::create_directories(folder);
            std::filesystem::create_hard_link(songs[static_cast<std::size_t>(index) % songs.size()],
                                              folder / (std::to_string(index) + ".opus"));
        }
        foundation::FileManager::shared().setDeviceRoot(directory_.path() / "device");
    }

    std::filesystem::path music() const { return directory_.path() / "music"; }
    void forgetIndex() const { std::filesystem::remove_all(directory_.path() / "device/var"); }

private:
    std::filesystem::path copy(const std::filesystem::path& song, std::size_t number) const {
        const auto target = directory_.path() / ("song" + std::to_string(number));
        std::filesystem::copy_file(song, target);
        return target;
    }
    tests::TemporaryDirectory directory_;
};

double threadSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Reads the library once, and answers the longest turn of the main loop, in seconds of its thread.
double longestTurnOfScan(const ManyFiles& files, benchmark::State& state) {
    foundation::GlibRunLoop loop;
    foundation::RunLoop::setMain(&loop);
    double longest = 0;
    {
        playback::IndexedMusicLibrary library;
        library.addDirectory(files.music());
        while (library.isScanning()) {
            const double begin = threadSeconds();
            g_main_context_iteration(nullptr, TRUE);
            longest = std::max(longest, threadSeconds() - begin);
        }
        if (library.songs()->size() != static_cast<std::size_t>(fileCount))
            state.SkipWithError("songs are missing");
    }
    foundation::RunLoop::setMain(nullptr);
    return longest;
}

void measure(benchmark::State& state, bool withIndex) {
    foundation::setLogToStandardError(false);
    static const ManyFiles files;
    double longest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        if (!withIndex)
            files.forgetIndex();
        state.ResumeTiming();
        longest = std::max(longest, longestTurnOfScan(files, state));
    }
    state.counters["longest_turn_ms"] = longest * 1e3;
}

void MusicScan(benchmark::State& state) {
    measure(state, false);
}
BENCHMARK(MusicScan)->UseRealTime()->Unit(benchmark::kSecond)->Iterations(1);

void MusicStart(benchmark::State& state) {
    measure(state, true);
}
BENCHMARK(MusicStart)->UseRealTime()->Unit(benchmark::kSecond)->Iterations(5);

} // namespace

BENCHMARK_MAIN();

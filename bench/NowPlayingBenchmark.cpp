// What the music panel costs in a running phone: a step of autoscroll, a frame of a lyric of 300 lines that
// scrolls, a new track, from the report until the strip of songs and the ring stand on the screen, and a song
// that plays while the panel is closed.
#include "bench/LibraryPort.h"
#include "bench/Percentiles.h"
#include "bench/RunningPhone.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/runtime/Message.h"

#include <ctime>

using bench::LibraryPort;
using bench::RunningPhone;
using foundation::FileManager;
using toolkit::WindowServer;

namespace {

constexpr int songs = 2000;
constexpr int songWithLyric = 7;
constexpr int lines = 300;
constexpr double duration = 200; // seconds

std::string longLyric() {
    std::string text;
    for (int line = 0; line < lines; ++line)
        text += "Line " + std::to_string(line) + ", and so it goes on and on\n";
    return text;
}

/// The phone with the right panel pulled in, a library, one lyric, and no services on the network.
struct MusicPanel {
    MusicPanel() {
        auto& files = FileManager::shared();
        files.writeDictionaryAtomically("/Library/Application Support/Vela/configuration.plist", {});
        files.writeDictionaryAtomically(
            "/var/mobile/Documents/Vela/fetchedLyrics.plist",
            {{LibraryPort::titleOf(songWithLyric) + "_" + LibraryPort::artistOf(songWithLyric),
              longLyric()}});
        running.phone->touchDown(1, {374, 300});
        for (double x = 370; x > 60; x -= 20) {
            running.loop.advance(foundation::RunLoop::frameInterval);
            running.step({x, 300});
        }
        running.phone->touchUp(1);
        running.settle(1);
        controller.playbackStateDidChange(true);
    }
    static MusicPanel& shared() {
        static auto& panel = *new MusicPanel; // like the phone
        return panel;
    }
    void report(int song) {
        controller.infoDidChange(foundation::PropertyList::Dictionary{
            {media::kMRMediaRemoteNowPlayingInfoTitle, LibraryPort::titleOf(song)},
            {media::kMRMediaRemoteNowPlayingInfoArtist, LibraryPort::artistOf(song)},
            {media::kMRMediaRemoteNowPlayingInfoAlbum, LibraryPort::albumOf(song)},
            {media::kMRMediaRemoteNowPlayingInfoDuration, duration},
            {media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier, song}});
    }
    /// Shows the long lyric, with the song at the given part of its duration.
    void showLyric(double part) {
        report(songWithLyric);
        running.settle(2);
        controller.elapsedTimeDidChange(part * duration);
        running.settle(0.5);
    }

    RunningPhone& running = RunningPhone::shared();
    LibraryPort library{songs};
    media::MPUNowPlayingController& controller = media::MPUNowPlayingController::sharedController();
};

void AutoscrollStep(benchmark::State& state) {
    auto& panel = MusicPanel::shared();
    panel.showLyric(0.9);
    const auto controls = panel.controller.controls().front();
    const runtime::Message<void()> scrollLyric{"scrollLyric"};
    constexpr int steps = 20; // are too short to be timed alone
    bench::Percentiles percentiles;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        for (int step = 0; step < steps; ++step)
            scrollLyric(*controls);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        percentiles.add(state, taken.count() / steps);
        panel.running.loop.turn();
    }
    percentiles.report(state);
}
BENCHMARK(AutoscrollStep)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);

void ScrollLyricFrame(benchmark::State& state) {
    auto& panel = MusicPanel::shared();
    panel.showLyric(0.1);
    bench::Percentiles percentiles;
    int frame = 0;
    for (auto _ : state) {
        if (frame++ % 120 == 0) // before the text has come to rest
            panel.controller.elapsedTimeDidChange((frame % 240 < 120 ? 0.9 : 0.1) * duration);
        const auto before = toolkit::Layer::changeCount();
        percentiles.measure(state, [&] {
            panel.running.loop.advance(foundation::RunLoop::frameInterval);
            WindowServer::shared().composeFrame();
        });
        if (toolkit::Layer::changeCount() == before)
            state.SkipWithError("the lyric stands still");
    }
    percentiles.report(state);
}
BENCHMARK(ScrollLyricFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(600);

void TrackChange(benchmark::State& state) {
    auto& panel = MusicPanel::shared();
    bench::Percentiles percentiles;
    int song = 100;
    for (auto _ : state) {
        percentiles.measure(state, [&] {
            panel.report(song);
            panel.running.loop.turn();
            WindowServer::shared().composeFrame();
        });
        song = song % songs + 1;
        panel.running.settle(1);
    }
    percentiles.report(state);
}
BENCHMARK(TrackChange)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(60);

/// A song of which nobody sees anything: how much of one core it takes, the sound itself left out.
void PlayingWithThePanelClosed(benchmark::State& state) {
    auto& panel = MusicPanel::shared();
    panel.showLyric(0);
    panel.running.phone->touchDown(1, {20, 300});
    panel.running.loop.advance(0.05);
    panel.running.phone->touchUp(1);
    panel.running.settle(1);
    constexpr int seconds = static_cast<int>(duration);
    double busy = 0;
    int frames = 0;
    for (auto _ : state) {
        const std::clock_t begin = std::clock();
        for (int frame = 0; frame < seconds * 60; ++frame) {
            if (frame % 60 == 0)
                panel.controller.elapsedTimeDidChange(frame / 60);
            panel.running.loop.advance(foundation::RunLoop::frameInterval);
            if (WindowServer::shared().needsFrame() && !WindowServer::shared().composeFrame().damage.empty())
                ++frames;
        }
        busy += static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    }
    const double songsPlayed = static_cast<double>(state.iterations());
    state.counters["core_percent"] = 100 * busy / (songsPlayed * seconds);
    state.counters["frames"] = std::max(0.0, frames / songsPlayed - seconds / 60.0);
}
BENCHMARK(PlayingWithThePanelClosed)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

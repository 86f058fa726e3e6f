// How long a frame takes to compose: the median and the 99th percentile of single frames, as counters in
// milliseconds. A pull on a panel has to stay within 3 ms (median) and 7 ms (99th percentile) a frame.
#include "platform/toolkit/layers/Compositor.h"
#include "platform/toolkit/text/TextLayout.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>

using namespace toolkit;

namespace {

constexpr Size screenSize{375, 667};
constexpr double screenScale = 2;

class TextContent : public LayerDelegate {
public:
    explicit TextContent(const std::string& text, double size, double width)
        : layout_(text, {Font::system(size), TextAlignment::Center, LineBreak::WordWrap, 0}, width) {}
    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override {
        canvas.drawText(layout_, bounds.origin(), Color::white(1));
    }
    Size size() const { return layout_.size(); }

private:
    TextLayout layout_;
};

std::shared_ptr<Layer> makeLayer(Rect frame) {
    auto layer = std::make_shared<Layer>();
    layer->setAnchorPoint({0, 0});
    layer->setBounds({{0, 0}, frame.size()});
    layer->setPosition(frame.origin());
    return layer;
}

std::shared_ptr<const Image> makeWallpaper() {
    return Image::draw(screenSize, screenScale, [](Canvas& canvas) {
        canvas.fillLinearGradient({{0, 0}, screenSize}, {0, 0}, {375, 667},
                                  {{0, Color::rgba(0.9, 0.3, 0.2)},
                                   {0.5, Color::rgba(0.2, 0.7, 0.5)},
                                   {1, Color::rgba(0.1, 0.2, 0.8)}});
    });
}

/// A home screen with icons, the dimming over it and a panel of frosted glass with text on it.
struct Scene {
    std::shared_ptr<Layer> home = makeLayer({{0, 0}, screenSize});
    std::shared_ptr<Layer> dimming = makeLayer({{0, 0}, screenSize});
    std::shared_ptr<Layer> panel = makeLayer({-225, 0, 225, 667});
    std::shared_ptr<Layer> scroller = makeLayer({0, 300, 225, 300});
    std::vector<std::unique_ptr<TextContent>> texts;
    std::vector<std::shared_ptr<Layer>> roots{home, dimming, panel};
    std::optional<Compositor> compositor{std::in_place};

    explicit Scene(bool withVibrancy) {
        home->setContents(makeWallpaper());
        for (int i = 0; i < 24; ++i) {
            auto icon = makeLayer({27.0 + (i % 4) * 87, 30.0 + (i / 4) * 95, 60, 60});
            icon->setBackgroundColor(Color::rgba(i % 3 * 0.4, i % 5 * 0.2, i % 7 * 0.15));
            icon->setCornerRadius(13);
            home->addSublayer(icon);
        }
        dimming->setBackgroundColor(Color::black().withAlpha(0.45));
        dimming->setOpacity(0);
        panel->setMasksToBounds(true);
        auto glass = makeLayer({0, 0, 225, 667});
        glass->setBackdrop(BackdropStyle::Dark);
        panel->addSublayer(glass);
        auto content = makeLayer({0, 0, 225, 667});
        if (withVibrancy)
            content->setGroupBlend(GroupBlend::VibrancyDark);
        glass->addSublayer(content);
        addText(*content, "Title of a song", 38, {0, 40});
        addText(*content, "The artist of it", 17, {0, 100});
        scroller->setMasksToBounds(true);
        scroller->setMask(GradientMask{{0, 0, 225, 300},
                                       {0, 0},
                                       {0.5, 0},
                                       {0.5, 1},
                                       {{0, Color::clear()}, {0.2, Color::black()}, {1, Color::black()}}});
        std::string lyric;
        for (int i = 0; i < 60; ++i)
            lyric += "And one more line of what is sung\n";
        addText(*scroller, lyric, 15, {0, 0});
        content->addSublayer(scroller);
    }

    void addText(Layer& parent, const std::string& text, double size, Point origin) {
        texts.push_back(std::make_unique<TextContent>(text, size, 225));
        auto layer = makeLayer({origin, texts.back()->size()});
        layer->setDelegate(texts.back().get());
        parent.addSublayer(layer);
    }

    void compose() { benchmark::DoNotOptimize(compositor->compose(roots, screenSize, screenScale)); }

    void pullTo(double part) {
        panel->setPosition({std::round((-225 + 225 * part) * 2) / 2, 0});
        dimming->setOpacity(part);
    }
};

/// Times `step` (untimed) followed by one composed frame, over and over.
template <typename Step>
void measure(benchmark::State& state, Scene& scene, Step step) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    int frame = 0;
    for (auto _ : state) {
        step(frame++);
        const auto start = Clock::now();
        scene.compose();
        const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        state.SetIterationTime(elapsed);
        times.push_back(elapsed * 1000);
    }
    std::sort(times.begin(), times.end());
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["p99_ms"] = times[times.size() * 99 / 100];
    state.counters["max_ms"] = times.back();
}

double swing(int frame) {
    return 0.5 - 0.5 * std::cos(frame * 0.05);
}

void PullPanel(benchmark::State& state) {
    Scene scene(state.range(0) != 0);
    scene.compose();
    measure(state, scene, [&](int frame) { scene.pullTo(swing(frame)); });
}

void DimAlone(benchmark::State& state) {
    Scene scene(false);
    scene.compose();
    measure(state, scene, [&](int frame) { scene.dimming->setOpacity(swing(frame)); });
}

void ScrollTextOnGlass(benchmark::State& state) {
    Scene scene(state.range(0) != 0);
    scene.pullTo(1);
    scene.compose();
    measure(state, scene, [&](int frame) {
        const double offset = frame % 600;
        scene.scroller->setBounds({0, offset, 225, 300});
        auto mask = *scene.scroller->mask();
        mask.position = {0, offset};
        scene.scroller->setMask(mask);
    });
}

void NothingChanges(benchmark::State& state) {
    Scene scene(true);
    scene.pullTo(1);
    scene.compose();
    measure(state, scene, [](int) {});
}

void EverythingAfresh(benchmark::State& state) {
    Scene scene(true);
    scene.pullTo(1);
    measure(state, scene, [&](int) { scene.compositor.emplace(); });
}

} // namespace

BENCHMARK(PullPanel)
    ->ArgName("vibrancy")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->MinTime(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(DimAlone)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollTextOnGlass)
    ->ArgName("vibrancy")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(NothingChanges)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(EverythingAfresh)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    setFontDirectory(VELA_SOURCE_DIR "/resources/fonts", true);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}

#include "platform/foundation/GlibRunLoop.h"

#include "platform/foundation/BackgroundQueue.h"
#include "platform/foundation/HTTPThread.h"
#include "platform/foundation/TimedSource.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <mutex>
#include <vector>

#include <glib.h>

namespace foundation {

namespace {

constexpr double microsecondsPerSecond = 1e6;
constexpr double framesPerSecond = 60;
/// A repeating timer's least interval, so that other sources have their turns between its beats.
constexpr double leastInterval = 0.0001;

double clockTime() {
    return static_cast<double>(g_get_monotonic_time()) / microsecondsPerSecond;
}

double usableInterval(double interval, bool repeats) {
    if (std::isnan(interval))
        interval = 0;
    return std::max(interval, repeats ? leastInterval : 0.0);
}

/// The number of the next beat, where `last` was the latest and `position` is the present moment in beats.
/// Never `last` again, should rounding have it that its moment is yet to come.
double firstAfter(double last, double position) {
    return std::max(last, std::floor(position)) + 1;
}

} // namespace

struct GlibRunLoop::State {
    struct Timer {
        double begin = 0;
        double interval = 0;
        double beat = 1;
        bool repeats = false;
        std::function<void()> fire;
        double due() const { return begin + beat * interval; }
        std::unique_ptr<TimedSource> source;
    };
    struct Link {
        bool removed = false;
        double begin = 0;
        std::function<void(double)> tick;
    };

    explicit State(GlibRunLoop& owner)
        : loop(owner), mainLoop(g_main_loop_new(nullptr, FALSE)), blocksSource([this] { runBlocks(); }) {}
    ~State() { g_main_loop_unref(mainLoop); }

    void fireTimer(const std::weak_ptr<Timer>& weak);
    void removeTimer(const std::shared_ptr<Timer>& timer);
    void removeLink(const std::shared_ptr<Link>& link);
    void awaitNextFrame();
    void awaitFrame(double first);
    void fireFrame();
    void runBlocks();

    GlibRunLoop& loop;
    GMainLoop* mainLoop;
    std::list<std::shared_ptr<Timer>> timers;
    std::list<std::shared_ptr<Link>> links;
    /// Stands only while links do: an idle loop has no wake-ups of its own.
    std::unique_ptr<TimedSource> frames;
    /// The number of the frame that comes next, on the grid of the clock's sixtieths of a second.
    double frame = 0;
    /// How many of the frames before it come with it.
    double owedFrames = 0;
    int framesTogether = 1;
    std::mutex blocksMutex;
    std::deque<std::function<void()>> blocks;
    TimedSource blocksSource;
    BackgroundQueue background;
};

void GlibRunLoop::State::removeTimer(const std::shared_ptr<Timer>& timer) {
    timer->source.reset();
    timers.remove(timer);
}

void GlibRunLoop::State::fireTimer(const std::weak_ptr<Timer>& weak) {
    // Held, for its own callback may let the timer go.
    const auto timer = weak.lock();
    if (!timer)
        return;
    if (!timer->repeats)
        removeTimer(timer);
    timer->fire();
    loop.runTurnHooks();
    if (!timer->source)
        return;
    // Only now: beats that the work took longer than are skipped.
    timer->beat = firstAfter(timer->beat, (clockTime() - timer->begin) / timer->interval);
    timer->source->fireAt(timer->due());
}

void GlibRunLoop::State::removeLink(const std::shared_ptr<Link>& link) {
    link->removed = true;
    links.remove(link);
    if (links.empty())
        frames.reset();
}

/// Frames that have been missed are skipped.
void GlibRunLoop::State::awaitNextFrame() {
    awaitFrame(firstAfter(frame, clockTime() * framesPerSecond));
}

/// `first` is the first frame that the links have not had and will get.
void GlibRunLoop::State::awaitFrame(double first) {
    frame = firstAfter(first + framesTogether - 2, clockTime() * framesPerSecond);
    owedFrames = frame - first;
    if (frames)
        frames->fireAt(frame / framesPerSecond);
}

void GlibRunLoop::State::fireFrame() {
    const double now = clockTime(), latest = frame;
    const std::vector<std::shared_ptr<Link>> ticking(links.begin(), links.end());
    const auto tick = [&ticking](double time) {
        for (const auto& link : ticking)
            if (!link->removed && link->begin <= time)
                link->tick(time);
    };
    for (double owed = owedFrames; owed > 0; --owed)
        tick((latest - owed) / framesPerSecond);
    tick(now);
    loop.runTurnHooks();
    // Only now: frames that the work took longer than are skipped.
    awaitNextFrame();
}

void GlibRunLoop::State::runBlocks() {
    blocksSource.rest();
    // Blocks that these blocks ask for belong to the next turn.
    std::deque<std::function<void()>> turn;
    {
        std::lock_guard lock(blocksMutex);
        turn.swap(blocks);
    }
    if (turn.empty())
        return;
    for (const auto& block : turn)
        block();
    loop.runTurnHooks();
}

GlibRunLoop::GlibRunLoop() : state_(std::make_shared<State>(*this)) {}

GlibRunLoop::~GlibRunLoop() {
    // While the loop still stands: transfers report to it, and what runs in the background asks for blocks
    // until it ends.
    HTTPThread::stop();
    state_->background.finish();
    HTTPThread::stop(); // of what the last pieces have started
}

double GlibRunLoop::now() const {
    return clockTime();
}

Handle GlibRunLoop::scheduleTimer(double interval, bool repeats, std::function<void()> fire) {
    auto timer = std::make_shared<State::Timer>();
    timer->begin = clockTime();
    timer->interval = usableInterval(interval, repeats);
    timer->repeats = repeats;
    timer->fire = std::move(fire);
    timer->source = std::make_unique<TimedSource>(
        [state = state_.get(), weak = std::weak_ptr(timer)] { state->fireTimer(weak); });
    timer->source->fireAt(timer->due());
    state_->timers.push_back(timer);
    return Handle([weakState = std::weak_ptr(state_), weak = std::weak_ptr(timer)] {
        const auto state = weakState.lock();
        if (const auto scheduled = weak.lock(); scheduled && state)
            state->removeTimer(scheduled);
    });
}

void GlibRunLoop::performOnMain(std::function<void()> block) {
    {
        std::lock_guard lock(state_->blocksMutex);
        state_->blocks.push_back(std::move(block));
    }
    state_->blocksSource.fireNow();
}

void GlibRunLoop::performInBackground(std::function<void()> work) {
    state_->background.add(std::move(work));
}

Handle GlibRunLoop::addDisplayLink(std::function<void(double)> tick) {
    auto link = std::make_shared<State::Link>();
    link->begin = clockTime();
    link->tick = std::move(tick);
    state_->links.push_back(link);
    if (!state_->frames) {
        state_->frames = std::make_unique<TimedSource>([state = state_.get()] { state->fireFrame(); });
        state_->awaitNextFrame();
    }
    return Handle([weakState = std::weak_ptr(state_), weak = std::weak_ptr(link)] {
        const auto state = weakState.lock();
        if (const auto added = weak.lock(); added && state)
            state->removeLink(added);
    });
}

void GlibRunLoop::gatherFrames(int count) {
    state_->framesTogether = count;
    if (state_->frames)
        state_->awaitFrame(state_->frame - state_->owedFrames);
}

void GlibRunLoop::run() {
    g_main_loop_run(state_->mainLoop);
}

void GlibRunLoop::stop() {
    g_main_loop_quit(state_->mainLoop);
}

} // namespace foundation

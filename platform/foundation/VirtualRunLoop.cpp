#include "platform/foundation/VirtualRunLoop.h"

#include "platform/foundation/HTTPThread.h"
#include "platform/foundation/OutsideWork.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace foundation {

namespace {

/// Moments closer than this are one: 0.7 + 0.1 is a little less than 0.8, and a timer of 0.8 seconds is due.
constexpr double sameMoment = 1e-9;
/// A repeating timer's least interval, so that time goes on between its beats.
constexpr double leastInterval = 0.0001;
/// How many turns blocks that always ask for further blocks may have at one moment; the rest waits for the
/// next.
constexpr int turnsInMoment = 100;

constexpr double framesPerSecond = 60;
constexpr double never = std::numeric_limits<double>::infinity();

/// Frames lie at n/60 of the loop's time, computed by division so that no error adds up.
double timeOfFrame(std::uint64_t frame) {
    return static_cast<double>(frame) / framesPerSecond;
}

std::uint64_t firstFrameAfter(double time) {
    auto frame = static_cast<std::uint64_t>(std::max(0.0, std::floor(time * framesPerSecond)));
    while (timeOfFrame(frame) <= time + sameMoment)
        ++frame;
    return frame;
}

double usableInterval(double interval, bool repeats) {
    if (std::isnan(interval))
        interval = 0;
    return std::max(interval, repeats ? leastInterval : 0.0);
}

/// Takes an entry out of its list when the handle goes, if both still stand.
template <typename T>
Handle handleFor(const std::shared_ptr<std::list<std::shared_ptr<T>>>& list,
                 const std::shared_ptr<T>& entry) {
    return Handle([weakList = std::weak_ptr(list), weakEntry = std::weak_ptr(entry)] {
        auto registered = weakEntry.lock();
        if (!registered)
            return;
        registered->removed = true;
        if (auto entries = weakList.lock())
            entries->remove(registered);
    });
}

} // namespace

VirtualRunLoop::VirtualRunLoop() {
    OutsideWork::shared().hold();
}

VirtualRunLoop::~VirtualRunLoop() {
    // While the loop still stands: transfers that end report to it.
    HTTPThread::stop();
    OutsideWork::shared().letGo();
}

Handle VirtualRunLoop::scheduleTimer(double interval, bool repeats, std::function<void()> fire) {
    auto timer = std::make_shared<Timer>();
    timer->begin = now_;
    timer->interval = usableInterval(interval, repeats);
    timer->repeats = repeats;
    timer->order = ++order_;
    timer->fire = std::move(fire);
    timers_->push_back(timer);
    return handleFor(timers_, timer);
}

void VirtualRunLoop::performOnMain(std::function<void()> block) {
    std::lock_guard lock(blocksMutex_);
    blocks_.push_back(std::move(block));
}

void VirtualRunLoop::performInBackground(std::function<void()> work) {
    performOnMain(std::move(work));
}

Handle VirtualRunLoop::addDisplayLink(std::function<void(double)> tick) {
    auto link = std::make_shared<Link>();
    link->nextFrame = firstFrameAfter(now_);
    link->tick = std::move(tick);
    links_->push_back(link);
    return handleFor(links_, link);
}

void VirtualRunLoop::advance(double seconds) {
    advanceTo(now_ + std::max(seconds, 0.0));
}

void VirtualRunLoop::advanceTo(double target) {
    // What was changed from outside ends its turn before the clock moves.
    settle();
    settleOutsideWork();
    for (;;) {
        const auto timer = nextTimer();
        const double due = std::min(timer ? timer->due() : never, nextFrameTime());
        if (due > target + sameMoment)
            break;
        now_ = std::max(now_, std::min(due, target));
        runTimers();
        runLinks();
        settle();
        settleOutsideWork();
    }
    now_ = std::max(now_, target);
}

void VirtualRunLoop::turn() {
    runBlocks();
    runTurnHooks();
}

void VirtualRunLoop::settle() {
    int turns = 0;
    do
        turn();
    while (hasBlocks() && ++turns < turnsInMoment);
}

void VirtualRunLoop::settleOutsideWork() {
    for (int rounds = 0; rounds < turnsInMoment; ++rounds) {
        const auto ends = OutsideWork::shared().takeEnds(patience_);
        if (ends.empty())
            return;
        for (const auto& deliver : ends)
            deliver();
        settle();
    }
}

bool VirtualRunLoop::runUntil(const std::function<bool()>& done, double limit) {
    const double deadline = now_ + limit;
    while (!done()) {
        if (now_ >= deadline)
            return false;
        advanceTo(std::min(timeOfFrame(firstFrameAfter(now_)), deadline));
    }
    return true;
}

bool VirtualRunLoop::hasBlocks() {
    std::lock_guard lock(blocksMutex_);
    return !blocks_.empty();
}

void VirtualRunLoop::runBlocks() {
    // Blocks that these blocks ask for belong to the next turn.
    std::deque<std::function<void()>> blocks;
    {
        std::lock_guard lock(blocksMutex_);
        blocks.swap(blocks_);
    }
    for (const auto& block : blocks)
        block();
}

std::shared_ptr<VirtualRunLoop::Timer> VirtualRunLoop::nextTimer() const {
    std::shared_ptr<Timer> next;
    for (const auto& timer : *timers_)
        if (!next || timer->due() < next->due() ||
            (timer->due() == next->due() && timer->order < next->order))
            next = timer;
    return next;
}

void VirtualRunLoop::runTimers() {
    // Whatever falls due at one moment runs in the order in which it was scheduled.
    std::vector<std::shared_ptr<Timer>> due;
    for (const auto& timer : *timers_)
        if (timer->due() <= now_ + sameMoment)
            due.push_back(timer);
    std::sort(due.begin(), due.end(), [](const auto& a, const auto& b) { return a->order < b->order; });
    for (const auto& timer : due) {
        if (timer->removed)
            continue;
        if (timer->repeats) {
            ++timer->beat;
        } else {
            timer->removed = true;
            timers_->remove(timer);
        }
        timer->fire();
    }
}

double VirtualRunLoop::nextFrameTime() const {
    double next = never;
    for (const auto& link : *links_)
        next = std::min(next, timeOfFrame(link->nextFrame));
    return next;
}

void VirtualRunLoop::runLinks() {
    const std::vector<std::shared_ptr<Link>> links(links_->begin(), links_->end());
    for (const auto& link : links) {
        if (link->removed || timeOfFrame(link->nextFrame) > now_ + sameMoment)
            continue;
        ++link->nextFrame;
        link->tick(now_);
    }
}

} // namespace foundation

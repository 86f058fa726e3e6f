#include "hosts/media/engine/SerialThread.h"

#include <utility>

namespace playback {

SerialThread::SerialThread() : thread_([this] { run(); }) {}

SerialThread::~SerialThread() {
    {
        std::lock_guard lock(mutex_);
        ended_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void SerialThread::add(std::function<void()> work) {
    {
        std::lock_guard lock(mutex_);
        work_.push_back(std::move(work));
    }
    changed_.notify_one();
}

void SerialThread::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ended_ || !work_.empty(); });
        if (work_.empty())
            return;
        const auto work = std::exchange(work_.front(), nullptr);
        work_.pop_front();
        lock.unlock();
        work();
        lock.lock();
    }
}

} // namespace playback

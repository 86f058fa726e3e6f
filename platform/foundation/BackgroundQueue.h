// Work away from the main thread, a few pieces at a time; most of them wait for the network or the disk.
//
// Any thread may add work. When the queue finishes, at the latest as it goes, it waits for the pieces that
// have begun and drops the others, and those that come later.
#pragma once

#include <functional>
#include <mutex>

typedef struct _GThreadPool GThreadPool;

namespace foundation {

class BackgroundQueue {
public:
    BackgroundQueue();
    BackgroundQueue(const BackgroundQueue&) = delete;
    BackgroundQueue& operator=(const BackgroundQueue&) = delete;
    ~BackgroundQueue();

    void add(std::function<void()> work);
    void finish();

private:
    std::mutex mutex_;
    GThreadPool* pool_;
};

} // namespace foundation

#include "platform/foundation/BackgroundQueue.h"

#include <memory>
#include <utility>

#include <glib.h>

namespace foundation {

namespace {

constexpr int concurrentPieces = 4;

using Work = std::function<void()>;

void runWork(gpointer data, gpointer) {
    const std::unique_ptr<Work> work(static_cast<Work*>(data));
    (*work)();
}

void dropWork(gpointer data) {
    delete static_cast<Work*>(data);
}

} // namespace

BackgroundQueue::BackgroundQueue()
    : pool_(g_thread_pool_new_full(runWork, nullptr, dropWork, concurrentPieces, FALSE, nullptr)) {}

BackgroundQueue::~BackgroundQueue() {
    finish();
}

void BackgroundQueue::add(Work work) {
    std::lock_guard lock(mutex_);
    if (!pool_)
        return;
    // An error means only that no further thread could be made; the work then waits for one that stands.
    g_thread_pool_push(pool_, new Work(std::move(work)), nullptr);
}

void BackgroundQueue::finish() {
    GThreadPool* pool = nullptr;
    {
        // Not held while waiting: the pieces that end may want to add others.
        std::lock_guard lock(mutex_);
        pool = std::exchange(pool_, nullptr);
    }
    if (pool)
        g_thread_pool_free(pool, TRUE, TRUE);
}

} // namespace foundation

#include "platform/foundation/HTTPThread.h"

#include <algorithm>
#include <cstdlib>

#include <curl/curl.h>

namespace foundation {

namespace {

/// Milliseconds between two looks at transfers that nothing happens to; every event comes at once.
constexpr int restWithoutEvents = 60'000;

struct Current {
    std::mutex mutex;
    std::unique_ptr<HTTPThread> thread;
};

Current& current() {
    static auto& state = *new Current; // never torn down: others may ask during exit
    return state;
}

void initializeLibrary() {
    static const bool done = [] {
        curl_global_init(CURL_GLOBAL_DEFAULT);
        // After the library's own preparations, so that the thread has ended before they are undone.
        std::atexit(HTTPThread::stop);
        return true;
    }();
    (void)done;
}

} // namespace

void HTTPThread::start(const Transfer& transfer) {
    std::lock_guard lock(current().mutex);
    auto& thread = current().thread;
    if (!thread)
        thread = std::make_unique<HTTPThread>();
    {
        std::lock_guard arrivedLock(thread->mutex_);
        thread->arrived_.push_back(transfer);
    }
    thread->interrupt();
}

void HTTPThread::wake() {
    std::lock_guard lock(current().mutex);
    if (current().thread)
        current().thread->interrupt();
}

void HTTPThread::stop() {
    std::unique_ptr<HTTPThread> stopped;
    {
        std::lock_guard lock(current().mutex);
        stopped.swap(current().thread);
    }
}

HTTPThread::HTTPThread() {
    initializeLibrary();
    multi_ = curl_multi_init();
    thread_ = std::thread([this] { run(); });
}

HTTPThread::~HTTPThread() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    interrupt();
    thread_.join();
    for (const Transfer& transfer : running_)
        curl_multi_remove_handle(multi_, transfer->handle());
    curl_multi_cleanup(multi_);
}

void HTTPThread::interrupt() {
    curl_multi_wakeup(multi_);
}

void HTTPThread::run() {
    while (takeArrived()) {
        endCancelled();
        admitWaiting();
        int still = 0;
        curl_multi_perform(multi_, &still);
        endFinished();
        // What has just ended may have made room for what waits.
        if (std::any_of(waiting_.begin(), waiting_.end(), [this](auto& next) { return mayRun(*next); }))
            continue;
        curl_multi_poll(multi_, nullptr, 0, restWithoutEvents, nullptr);
    }
}

/// Answers whether to go on.
bool HTTPThread::takeArrived() {
    std::lock_guard lock(mutex_);
    waiting_.splice(waiting_.end(), arrived_);
    return !stopping_;
}

void HTTPThread::endCancelled() {
    const auto endIn = [](std::list<Transfer>& transfers, auto beforeEnd) {
        for (auto next = transfers.begin(); next != transfers.end();) {
            const Transfer transfer = *next;
            if (!transfer->isCancelled()) {
                ++next;
                continue;
            }
            next = transfers.erase(next);
            beforeEnd(*transfer);
            transfer->endAsCancelled();
        }
    };
    endIn(waiting_, [](HTTPTransfer&) {});
    endIn(running_, [this](HTTPTransfer& transfer) { curl_multi_remove_handle(multi_, transfer.handle()); });
}

bool HTTPThread::mayRun(const HTTPTransfer& transfer) const {
    return std::count_if(running_.begin(), running_.end(), [&](const Transfer& other) {
               return transfer.sharesConnectionsWith(*other);
           }) < std::max(1, transfer.mostConnections());
}

void HTTPThread::admitWaiting() {
    for (auto next = waiting_.begin(); next != waiting_.end();) {
        const auto candidate = next++;
        if (!mayRun(**candidate))
            continue;
        curl_multi_add_handle(multi_, (*candidate)->handle());
        running_.splice(running_.end(), waiting_, candidate);
    }
}

void HTTPThread::endFinished() {
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        CURL* handle = message->easy_handle;
        const CURLcode code = message->data.result; // gone with the handle
        const auto found = std::find_if(running_.begin(), running_.end(),
                                        [handle](const Transfer& one) { return one->handle() == handle; });
        curl_multi_remove_handle(multi_, handle);
        if (found == running_.end())
            continue;
        const Transfer transfer = *found;
        running_.erase(found);
        transfer->endWithCode(code);
    }
}

} // namespace foundation

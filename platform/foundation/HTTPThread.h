// The thread on which every HTTP transfer of the process runs.
//
// It stands from the first transfer on, and rests while there is none.
#pragma once

#include "platform/foundation/HTTPTransfer.h"

#include <list>
#include <memory>
#include <mutex>
#include <thread>

typedef void CURLM;

namespace foundation {

class HTTPThread {
public:
    using Transfer = std::shared_ptr<HTTPTransfer>;

    /// Runs a transfer. Any thread.
    static void start(const Transfer& transfer);
    /// Lets the thread see that transfers have been cancelled. Any thread.
    static void wake();
    /// Drops every transfer, without a word to those who wait, and ends the thread; a later start makes a new
    /// one. Not on the thread itself.
    static void stop();

    HTTPThread();
    ~HTTPThread();
    HTTPThread(const HTTPThread&) = delete;
    HTTPThread& operator=(const HTTPThread&) = delete;

private:
    void run();
    bool takeArrived();
    void endCancelled();
    void admitWaiting();
    bool mayRun(const HTTPTransfer& transfer) const;
    void endFinished();
    void interrupt();

    CURLM* multi_;
    std::mutex mutex_;
    bool stopping_ = false;
    std::list<Transfer> arrived_;
    // The thread's own.
    std::list<Transfer> waiting_;
    std::list<Transfer> running_;
    std::thread thread_;
};

} // namespace foundation

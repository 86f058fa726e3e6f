// A thread that does one piece of work after the other.
//
// Any thread may add work. When the object goes, it waits until all of it is done.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace playback {

class SerialThread {
public:
    SerialThread();
    SerialThread(const SerialThread&) = delete;
    SerialThread& operator=(const SerialThread&) = delete;
    ~SerialThread();

    void add(std::function<void()> work);

private:
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> work_;
    bool ended_ = false;
    std::thread thread_;
};

} // namespace playback

#include "platform/plugins/CallWatchdog.h"

#include "platform/foundation/Log.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <thread>

#include <sys/timerfd.h>
#include <unistd.h>

namespace plugins {

namespace {

using Clock = std::chrono::steady_clock;

class Watch {
public:
    static Watch& shared() {
        // Never torn down: its thread waits until the process ends.
        static auto& watch = *new Watch;
        return watch;
    }

    void begin(const std::string& identifier, const char* method) {
        if (depth_++ > 0)
            return;
        {
            const std::lock_guard lock(mutex_);
            call_ = Call{&identifier, method, Clock::now()};
        }
        setTimer(CallWatchdog::allowedSeconds);
    }

    void end() {
        if (--depth_ > 0)
            return;
        setTimer(0);
        const std::lock_guard lock(mutex_);
        call_.reset();
    }

private:
    struct Call {
        const std::string* identifier;
        const char* method;
        Clock::time_point begin;
    };

    Watch() : timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC)) {
        if (timer_ >= 0)
            std::thread([this] { wait(); }).detach();
    }

    void setTimer(int seconds) {
        itimerspec time{};
        time.it_value.tv_sec = seconds;
        if (timer_ >= 0)
            timerfd_settime(timer_, 0, &time, nullptr);
    }

    void wait() {
        for (;;) {
            std::uint64_t expirations = 0;
            if (read(timer_, &expirations, sizeof expirations) < 0 && errno != EINTR)
                return;
            if (expirations > 0)
                nameCall();
        }
    }

    void nameCall() {
        const std::lock_guard lock(mutex_);
        // The call that the timer ran for may just have ended, and the next one begun.
        if (!call_ || Clock::now() - call_->begin < std::chrono::seconds(CallWatchdog::allowedSeconds))
            return;
        foundation::log("Plug-in " + *call_->identifier + " has been in " + call_->method +
                        " for more than " + std::to_string(CallWatchdog::allowedSeconds) + " s");
    }

    const int timer_;
    int depth_ = 0; // main thread only
    std::mutex mutex_;
    std::optional<Call> call_;
};

} // namespace

CallWatchdog::Scope::Scope(const std::string& identifier, const char* method) {
    Watch::shared().begin(identifier, method);
}

CallWatchdog::Scope::~Scope() {
    Watch::shared().end();
}

} // namespace plugins

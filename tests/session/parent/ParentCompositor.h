// A compositor in this process for another compositor to run in, as in a window: with that, a test can put
// real fingers on a touch screen.
//
// It serves its clients in a thread of its own; each method returns when that has done its work.
#pragma once

#include "tests/session/parent/ParentSeat.h"
#include "tests/session/parent/ParentShell.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace tests {

class ParentCompositor {
public:
    /// Listens on `socket`, for every user; its one window has `width` × `height` pixels. Throws
    /// std::runtime_error when it cannot.
    ParentCompositor(const std::filesystem::path& socket, int width, int height);
    ~ParentCompositor();
    ParentCompositor(const ParentCompositor&) = delete;
    ParentCompositor& operator=(const ParentCompositor&) = delete;

    /// Calls `work` in the compositor's thread, with its seat.
    void perform(std::function<void(ParentSeat&)> work);

private:
    struct DisplayEnd {
        void operator()(wl_display* display) const;
    };
    void listenOn(const std::filesystem::path& socket);
    static int workDue(int file, std::uint32_t, void* data);

    std::unique_ptr<wl_display, DisplayEnd> display_;
    std::optional<ParentShell> shell_;
    std::optional<ParentSeat> seat_;
    int wakeUp_;
    wl_event_source* workSource_ = nullptr;
    std::mutex lock_;
    std::vector<std::function<void()>> work_;
    std::thread thread_;
};

} // namespace tests

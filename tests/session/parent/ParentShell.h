// What a parent compositor lets its client show: one window of a size that it decides, which nobody sees.
//
// Buffers are let go of as soon as they are committed, and frames are asked for sixty times a second. Used in
// the compositor's thread alone.
#pragma once

#include <memory>
#include <vector>

#include <wayland-server-core.h>

namespace tests {

class ParentShell {
public:
    /// The display outlives this object, whose size is in pixels.
    ParentShell(wl_display* display, int width, int height);
    ~ParentShell();
    ParentShell(const ParentShell&) = delete;
    ParentShell& operator=(const ParentShell&) = delete;

    /// The surface that the client last made a window of; null when there is none.
    wl_resource* window() const { return window_; }

private:
    struct Surface;
    struct Requests;
    friend struct Requests;
    void surfaceGone(wl_resource* surface);
    void configure(Surface& surface) const;
    void askForFrames();

    int width_, height_;
    wl_resource* window_ = nullptr;
    std::vector<wl_resource*> frames_; // callbacks that wait for the next frame
    wl_event_source* timer_;
    bool timerRuns_ = false;
};

} // namespace tests

#include "hosts/session/wayland/Output.h"

#include "hosts/session/wayland/Protocols.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace session {

namespace {

constexpr double scaleSteps = 120; // of 1, as compositors count them

} // namespace

struct Output::Listener {
    static Output& self(void* data) { return *static_cast<Output*>(data); }

    static void geometry(void* data, wl_output*, int, int, int, int, int, const char*, const char*,
                         int transform) {
        self(data).transform_ = transform;
    }
    static void mode(void* data, wl_output*, std::uint32_t flags, int width, int height, int) {
        if (flags & WL_OUTPUT_MODE_CURRENT)
            self(data).mode_ = {static_cast<double>(width), static_cast<double>(height)};
    }
    static void done(void* data, wl_output*) {
        self(data).probe();
        self(data).changed_();
    }
    static void scale(void* data, wl_output*, int factor) {
        self(data).wholeScale_ = factor > 0 ? factor : 1;
    }
    static void name(void* data, wl_output*, const char* name) { self(data).name_ = name; }
    static void description(void*, wl_output*, const char*) {}
    static constexpr wl_output_listener output{geometry, mode, done, scale, name, description};

    static void logicalPosition(void*, zxdg_output_v1*, int, int) {}
    static void logicalSize(void* data, zxdg_output_v1*, int width, int height) {
        self(data).logical_ = {static_cast<double>(width), static_cast<double>(height)};
    }
    /// Since version 3 the output's own event says the same.
    static void xdgDone(void* data, zxdg_output_v1*) { self(data).changed_(); }
    static void xdgName(void* data, zxdg_output_v1*, const char* name) { self(data).name_ = name; }
    static void xdgDescription(void*, zxdg_output_v1*, const char*) {}
    static constexpr zxdg_output_v1_listener xdgOutput{logicalPosition, logicalSize, xdgDone, xdgName,
                                                       xdgDescription};

    static void powerMode(void* data, zwlr_output_power_v1*, std::uint32_t mode) {
        const bool on = mode == ZWLR_OUTPUT_POWER_V1_MODE_ON;
        if (std::exchange(self(data).on_, on) != on)
            self(data).changed_();
    }
    /// Nothing more will be told, so what was told last counts no longer.
    static void powerFailed(void* data, zwlr_output_power_v1*) {
        self(data).power_.reset();
        self(data).on_ = true;
        self(data).changed_();
    }
    static constexpr zwlr_output_power_v1_listener power{powerMode, powerFailed};
};

Output::Output(Proxy<wl_output> output, std::uint32_t globalName, std::function<void()> changed)
    : output_(std::move(output)), globalName_(globalName), changed_(std::move(changed)) {
    wl_output_add_listener(output_.get(), &Listener::output, this);
}

Output::~Output() = default;

void Output::describeBy(zxdg_output_manager_v1& manager) {
    xdgOutput_.reset(zxdg_output_manager_v1_get_xdg_output(&manager, output_.get()));
    zxdg_output_v1_add_listener(xdgOutput_.get(), &Listener::xdgOutput, this);
}

void Output::describeBy(const OutputProbe::Means& means) {
    probeMeans_ = means;
    probe();
}

/// Until the answer comes, the size stays what it was.
void Output::probe() {
    if (!probeMeans_)
        return;
    probe_ = std::make_unique<OutputProbe>(*probeMeans_, *output_, [this](toolkit::Size size) {
        probe_.reset();
        logical_ = size;
        changed_();
    });
}

void Output::watchPower(zwlr_output_power_manager_v1& manager) {
    power_.reset(zwlr_output_power_manager_v1_get_output_power(&manager, output_.get()));
    zwlr_output_power_v1_add_listener(power_.get(), &Listener::power, this);
}

bool Output::isBuiltIn() const {
    static constexpr std::array connectors{"DSI", "eDP", "LVDS"};
    for (const char* connector : connectors)
        if (name_.starts_with(connector))
            return true;
    return false;
}

toolkit::Size Output::logicalSize() const {
    if (!logical_.isEmpty())
        return logical_;
    const double width = mode_.width / wholeScale_, height = mode_.height / wholeScale_;
    return isTurnedSideways() ? toolkit::Size{height, width} : toolkit::Size{width, height};
}

double Output::scale() const {
    const double across = isTurnedSideways() ? mode_.height : mode_.width;
    if (logical_.isEmpty() || !(across > 0))
        return wholeScale_;
    // The size in points has been rounded; scales come in steps.
    return std::max(1.0, std::round(across / logical_.width * scaleSteps)) / scaleSteps;
}

} // namespace session

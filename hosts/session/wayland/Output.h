// One of the compositor's outputs: where it lies, how large, turned and scaled it is, and whether it is on.
#pragma once

#include "hosts/session/wayland/OutputProbe.h"
#include "hosts/session/wayland/Proxy.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace session {

class Output {
public:
    /// `changed` is called after each complete change.
    Output(Proxy<wl_output> output, std::uint32_t globalName, std::function<void()> changed);
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    wl_output* object() const { return output_.get(); }
    std::uint32_t globalName() const { return globalName_; }
    /// "DSI-1"; empty where the compositor does not tell.
    const std::string& name() const { return name_; }
    /// A screen that belongs to the device itself.
    bool isBuiltIn() const;
    /// Whether everything needed to lay a screen out is known.
    bool isReady() const {
        const bool isAsked = xdgOutput_ || probe_;
        return !logicalSize().isEmpty() && (!isAsked || !logical_.isEmpty());
    }

    /// In points, as the output is turned.
    toolkit::Size logicalSize() const;
    /// Pixels a point, also between whole numbers.
    double scale() const;
    /// The scale of buffers that are shown without a viewport: the next whole number from scale() on.
    int wholeScale() const { return wholeScale_; }
    /// The compositor's number for how the output is turned: quarter turns in the lowest two bits, 4 for a
    /// mirror.
    int transform() const { return transform_; }
    bool isOn() const { return on_; }

    /// Whether somebody is asked for the size in points.
    bool isDescribed() const { return xdgOutput_ || probeMeans_; }
    void describeBy(zxdg_output_manager_v1& manager);
    /// The means outlive this object.
    void describeBy(const OutputProbe::Means& means);
    bool isPowerWatched() const { return power_ != nullptr; }
    void watchPower(zwlr_output_power_manager_v1& manager);

private:
    struct Listener;
    friend struct Listener;
    void probe();
    bool isTurnedSideways() const { return transform_ % 2 == 1; }

    Proxy<wl_output> output_;
    Proxy<zxdg_output_v1> xdgOutput_;
    std::optional<OutputProbe::Means> probeMeans_;
    std::unique_ptr<OutputProbe> probe_; // until it has answered
    Proxy<zwlr_output_power_v1> power_;
    std::uint32_t globalName_;
    std::function<void()> changed_;
    std::string name_;
    toolkit::Size mode_;    // pixels, not turned
    toolkit::Size logical_; // points, empty where it is not told
    int wholeScale_ = 1;
    int transform_ = 0;
    bool on_ = true;
};

} // namespace session

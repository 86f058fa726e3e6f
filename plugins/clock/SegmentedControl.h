// A row of words of which one is chosen; a longer one gets more room.
#pragma once

#include "VelaPlugin.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace clockplugin {

class SegmentedControl {
public:
    SegmentedControl(vela::plugin::Host& host, std::vector<std::string> titles,
                     std::function<void(std::size_t)> onChoose);
    SegmentedControl(const SegmentedControl&) = delete;
    SegmentedControl& operator=(const SegmentedControl&) = delete;

    void setFrame(vela::plugin::Rect frame);
    void setHidden(bool hidden) { area_->setHidden(hidden); }
    /// Calls no handler.
    void setChosen(std::size_t index);

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    void drawSegment(vela::plugin::Canvas& canvas, vela::plugin::Rect segment, std::size_t index) const;
    /// The left edge of a segment, or beyond the last one the right edge of all, in a control so wide.
    double edge(std::size_t index, double width) const;
    void touched(const vela::plugin::Touch& touch);
    std::optional<std::size_t> segmentAt(vela::plugin::Point point) const;

    std::vector<std::string> titles_;
    std::vector<double> titleWidths_;
    std::function<void(std::size_t)> onChoose_;
    std::size_t chosen_ = 0;
    std::optional<std::size_t> pressed_;
    std::optional<std::int64_t> finger_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace clockplugin

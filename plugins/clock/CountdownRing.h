// The ring of the time that remains, with the time itself in it.
#pragma once

#include "VelaPlugin.h"

#include <memory>
#include <string>

namespace clockplugin {

class CountdownRing {
public:
    struct Content {
        double fraction = 1; // of the whole duration
        std::string time;
        std::string caption;
        bool isPaused = false;
    };

    explicit CountdownRing(vela::plugin::Host& host);
    CountdownRing(const CountdownRing&) = delete;
    CountdownRing& operator=(const CountdownRing&) = delete;

    void setFrame(vela::plugin::Rect frame);
    void show(Content content);
    /// In points.
    double circumference() const;

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    double radius() const;

    Content content_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace clockplugin

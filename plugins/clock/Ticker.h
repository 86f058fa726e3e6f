// Does some work again and again, each time as much later as the work itself says. Costs nothing while
// stopped.
#pragma once

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <optional>

namespace clockplugin {

class Ticker {
public:
    /// Answers the seconds until it is to be done again; nothing when it need not be. It must not destroy the
    /// ticker.
    using Work = std::function<std::optional<double>()>;

    Ticker(vela::plugin::Host& host, Work work);
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;

    /// Works at once, and then when it is time.
    void start();
    void stop() { timer_.reset(); }

private:
    vela::plugin::Host& host_;
    Work work_;
    std::unique_ptr<vela::plugin::Timer> timer_;
};

} // namespace clockplugin

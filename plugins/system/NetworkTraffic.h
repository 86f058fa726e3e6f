// How much has come in and gone out over the network, from the text of /proc/net/dev.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace systemplugin {

/// Since an interface was set up, in bytes.
struct InterfaceTraffic {
    std::string name;
    std::uint64_t received = 0;
    std::uint64_t sent = 0;
    friend bool operator==(const InterfaceTraffic&, const InterfaceTraffic&) = default;
};

/// All interfaces but the loopback. Lines that are not understood are passed over.
std::vector<InterfaceTraffic> parseNetworkTraffic(std::string_view text);

/// In bytes a second.
struct TrafficRate {
    double received = 0;
    double sent = 0;
    friend bool operator==(const TrafficRate&, const TrafficRate&) = default;
};

/// Summed over the interfaces that are there at both moments, `seconds` apart. A counter that began anew adds
/// nothing.
TrafficRate trafficRate(const std::vector<InterfaceTraffic>& before,
                        const std::vector<InterfaceTraffic>& after, double seconds);

} // namespace systemplugin

#include "NetworkTraffic.h"

#include "Fields.h"

#include <algorithm>

namespace systemplugin {

namespace {
constexpr std::size_t receivedColumn = 0;
constexpr std::size_t sentColumn = 8;

/// "name: received … sent …"; the first number may stand right behind the colon.
std::optional<InterfaceTraffic> parseInterface(std::string_view line) {
    const std::size_t colon = line.rfind(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const auto names = wordsOf(line.substr(0, colon));
    const auto columns = wordsOf(line.substr(colon + 1));
    if (names.size() != 1 || columns.size() <= sentColumn)
        return std::nullopt;
    const auto received = numberFrom(columns[receivedColumn]);
    const auto sent = numberFrom(columns[sentColumn]);
    if (!received || !sent)
        return std::nullopt;
    return InterfaceTraffic{std::string(names[0]), *received, *sent};
}

double increase(std::uint64_t before, std::uint64_t after) {
    return after > before ? static_cast<double>(after - before) : 0;
}
} // namespace

std::vector<InterfaceTraffic> parseNetworkTraffic(std::string_view text) {
    std::vector<InterfaceTraffic> interfaces;
    for (const std::string_view line : linesOf(text))
        if (auto traffic = parseInterface(line); traffic && traffic->name != "lo")
            interfaces.push_back(std::move(*traffic));
    return interfaces;
}

TrafficRate trafficRate(const std::vector<InterfaceTraffic>& before,
                        const std::vector<InterfaceTraffic>& after, double seconds) {
    TrafficRate rate;
    if (!(seconds > 0))
        return rate;
    for (const InterfaceTraffic& now : after) {
        const auto then = std::find_if(before.begin(), before.end(),
                                       [&](const InterfaceTraffic& other) { return other.name == now.name; });
        if (then == before.end())
            continue;
        rate.received += increase(then->received, now.received) / seconds;
        rate.sent += increase(then->sent, now.sent) / seconds;
    }
    return rate;
}

} // namespace systemplugin

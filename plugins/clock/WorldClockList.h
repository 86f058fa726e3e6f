// The cities that somebody has chosen, in the order of choosing.
#pragma once

#include "City.h"

#include <string>
#include <string_view>
#include <vector>

namespace clockplugin {

class WorldClockList {
public:
    /// Some to begin with.
    WorldClockList();

    const std::vector<const City*>& cities() const { return cities_; }
    bool contains(const City& city) const;
    /// False when it is there already.
    bool add(const City& city);
    void remove(const City& city);

    /// A zone a line.
    std::string kept() const;
    /// Zones that are not known, or not for the first time, are left out.
    static WorldClockList restored(std::string_view text);

private:
    std::vector<const City*> cities_; // of allCities()
};

} // namespace clockplugin

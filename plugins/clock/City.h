// A place whose time can be shown, and the list of all that there are.
#pragma once

#include <string_view>
#include <vector>

namespace clockplugin {

struct City {
    std::string_view name;
    std::string_view country;
    std::string_view zone;      // of the time zone database; no two cities have the same
    std::string_view plainName; // for searching: without accents
};

/// Sorted by name.
const std::vector<City>& allCities();
const City* cityInZone(std::string_view zone);
/// Those with a word in their name or country that begins with `text`, whatever its case; all for an empty
/// text.
std::vector<const City*> citiesMatching(std::string_view text);

} // namespace clockplugin

#include "City.h"

#include <algorithm>
#include <cstddef>

namespace clockplugin {

namespace {

char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool isBetweenWords(char character) {
    return character == ' ' || character == '-' || character == '.';
}

bool matchesAt(std::string_view text, std::size_t start, std::string_view beginning) {
    if (text.size() - start < beginning.size())
        return false;
    return std::equal(beginning.begin(), beginning.end(), text.begin() + static_cast<std::ptrdiff_t>(start),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

bool hasWordWith(std::string_view text, std::string_view beginning) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((i == 0 || isBetweenWords(text[i - 1])) && matchesAt(text, i, beginning))
            return true;
    return false;
}

std::string_view withoutOuterSpaces(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

} // namespace

const std::vector<City>& allCities() {
    static const std::vector<City> cities{
        {"Amsterdam", "Netherlands", "Europe/Amsterdam", "Amsterdam"},
        {"Anchorage", "United States", "America/Anchorage", "Anchorage"},
        {"Athens", "Greece", "Europe/Athens", "Athens"},
        {"Auckland", "New Zealand", "Pacific/Auckland", "Auckland"},
        {"Bangkok", "Thailand", "Asia/Bangkok", "Bangkok"},
        {"Beijing", "China", "Asia/Shanghai", "Beijing"},
        {"Berlin", "Germany", "Europe/Berlin", "Berlin"},
        {"Bogotá", "Colombia", "America/Bogota", "Bogota"},
        {"Buenos Aires", "Argentina", "America/Argentina/Buenos_Aires", "Buenos Aires"},
        {"Cairo", "Egypt", "Africa/Cairo", "Cairo"},
        {"Chicago", "United States", "America/Chicago", "Chicago"},
        {"Delhi", "India", "Asia/Kolkata", "Delhi"},
        {"Denver", "United States", "America/Denver", "Denver"},
        {"Dhaka", "Bangladesh", "Asia/Dhaka", "Dhaka"},
        {"Dubai", "United Arab Emirates", "Asia/Dubai", "Dubai"},
        {"Halifax", "Canada", "America/Halifax", "Halifax"},
        {"Helsinki", "Finland", "Europe/Helsinki", "Helsinki"},
        {"Hong Kong", "China", "Asia/Hong_Kong", "Hong Kong"},
        {"Honolulu", "United States", "Pacific/Honolulu", "Honolulu"},
        {"Istanbul", "Türkiye", "Europe/Istanbul", "Istanbul"},
        {"Jakarta", "Indonesia", "Asia/Jakarta", "Jakarta"},
        {"Johannesburg", "South Africa", "Africa/Johannesburg", "Johannesburg"},
        {"Karachi", "Pakistan", "Asia/Karachi", "Karachi"},
        {"Kathmandu", "Nepal", "Asia/Kathmandu", "Kathmandu"},
        {"Lagos", "Nigeria", "Africa/Lagos", "Lagos"},
        {"Lisbon", "Portugal", "Europe/Lisbon", "Lisbon"},
        {"London", "United Kingdom", "Europe/London", "London"},
        {"Los Angeles", "United States", "America/Los_Angeles", "Los Angeles"},
        {"Madrid", "Spain", "Europe/Madrid", "Madrid"},
        {"Manila", "Philippines", "Asia/Manila", "Manila"},
        {"Mexico City", "Mexico", "America/Mexico_City", "Mexico City"},
        {"Nairobi", "Kenya", "Africa/Nairobi", "Nairobi"},
        {"New York", "United States", "America/New_York", "New York"},
        {"Paris", "France", "Europe/Paris", "Paris"},
        {"Reykjavík", "Iceland", "Atlantic/Reykjavik", "Reykjavik"},
        {"Rome", "Italy", "Europe/Rome", "Rome"},
        {"Santiago", "Chile", "America/Santiago", "Santiago"},
        {"São Paulo", "Brazil", "America/Sao_Paulo", "Sao Paulo"},
        {"Seoul", "South Korea", "Asia/Seoul", "Seoul"},
        {"Singapore", "Singapore", "Asia/Singapore", "Singapore"},
        {"St. John’s", "Canada", "America/St_Johns", "St. John's"},
        {"Stockholm", "Sweden", "Europe/Stockholm", "Stockholm"},
        {"Sydney", "Australia", "Australia/Sydney", "Sydney"},
        {"Tehran", "Iran", "Asia/Tehran", "Tehran"},
        {"Tokyo", "Japan", "Asia/Tokyo", "Tokyo"},
        {"Zurich", "Switzerland", "Europe/Zurich", "Zurich"},
    };
    return cities;
}

const City* cityInZone(std::string_view zone) {
    const auto found = std::find_if(allCities().begin(), allCities().end(),
                                    [&](const City& city) { return city.zone == zone; });
    return found == allCities().end() ? nullptr : &*found;
}

std::vector<const City*> citiesMatching(std::string_view text) {
    text = withoutOuterSpaces(text);
    std::vector<const City*> result;
    for (const City& city : allCities())
        if (text.empty() || hasWordWith(city.plainName, text) || hasWordWith(city.name, text) ||
            hasWordWith(city.country, text))
            result.push_back(&city);
    return result;
}

} // namespace clockplugin

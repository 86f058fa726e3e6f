#include "WorldClockList.h"

#include <algorithm>
#include <cstddef>

namespace clockplugin {

WorldClockList::WorldClockList() {
    for (const char* zone : {"America/New_York", "Europe/London", "Asia/Tokyo"})
        if (const City* city = cityInZone(zone))
            cities_.push_back(city);
}

bool WorldClockList::contains(const City& city) const {
    return std::find(cities_.begin(), cities_.end(), &city) != cities_.end();
}

bool WorldClockList::add(const City& city) {
    if (contains(city))
        return false;
    cities_.push_back(&city);
    return true;
}

void WorldClockList::remove(const City& city) {
    std::erase(cities_, &city);
}

std::string WorldClockList::kept() const {
    std::string text;
    for (const City* city : cities_)
        text.append(city->zone).append("\n");
    return text;
}

WorldClockList WorldClockList::restored(std::string_view text) {
    WorldClockList list;
    list.cities_.clear();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (const City* city = cityInZone(text.substr(0, end)))
            list.add(*city);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return list;
}

} // namespace clockplugin

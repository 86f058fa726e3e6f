#include "hosts/phone/music/RadioStations.h"

#include "platform/foundation/FileManager.h"

#include <glib.h>

#include <algorithm>
#include <memory>

using foundation::PropertyList;

namespace phone {

namespace {

constexpr const char* nameKey = "Name";
constexpr const char* addressKey = "Address";
constexpr std::size_t longestText = 2048; // bytes

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// The host of an address of the web; empty for anything else.
std::string hostOf(const std::string& address) {
    const std::unique_ptr<GUri, decltype(&g_uri_unref)> uri(
        g_uri_parse(address.c_str(), G_URI_FLAGS_NONE, nullptr), g_uri_unref);
    if (!uri || !g_uri_get_host(uri.get()))
        return {};
    const std::string scheme = g_uri_get_scheme(uri.get());
    return scheme == "http" || scheme == "https" ? g_uri_get_host(uri.get()) : "";
}

std::vector<RadioStation> stationsIn(const PropertyList& list) {
    std::vector<RadioStation> stations;
    const auto* entries = list.array();
    if (!entries)
        return stations;
    for (const PropertyList& entry : *entries) {
        const auto *name = entry[nameKey].string(), *address = entry[addressKey].string();
        const auto station = name && address ? RadioStations::fromInput(*name, *address) : std::nullopt;
        if (station && stations.size() < RadioStations::mostStations)
            stations.push_back(*station);
    }
    return stations;
}

bool write(const std::vector<RadioStation>& stations) {
    PropertyList::Array list;
    for (const RadioStation& station : stations)
        list.push_back(PropertyList::Dictionary{{nameKey, station.name}, {addressKey, station.url}});
    const auto& files = foundation::FileManager::shared();
    const std::string path = RadioStations::path;
    files.createDirectories(path.substr(0, path.rfind('/')));
    return files.writeDictionaryAtomically(path, {{RadioStations::listKey, std::move(list)}});
}

} // namespace

std::vector<RadioStation> RadioStations::all() {
    const auto& files = foundation::FileManager::shared();
    auto list = files.sharedDictionary(path);
    if (!list)
        list = files.sharedDictionary(configurationPath);
    if (!list)
        return {};
    const auto found = list->find(listKey);
    return found == list->end() ? std::vector<RadioStation>() : stationsIn(found->second);
}

bool RadioStations::add(const RadioStation& station) {
    auto stations = all();
    if (stations.size() >= mostStations)
        return false;
    stations.push_back(station);
    return write(stations);
}

bool RadioStations::remove(std::size_t index) {
    auto stations = all();
    if (index >= stations.size())
        return false;
    stations.erase(stations.begin() + static_cast<std::ptrdiff_t>(index));
    return write(stations);
}

std::optional<RadioStation> RadioStations::fromInput(const std::string& name, const std::string& address) {
    std::string url = trimmed(address);
    if (url.find("://") == std::string::npos)
        url = "http://" + url;
    const bool broken = std::any_of(url.begin(), url.end(), [](unsigned char c) { return c <= 0x20; });
    const std::string host = broken ? std::string() : hostOf(url);
    if (host.empty() || url.size() > longestText || name.size() > longestText)
        return std::nullopt;
    const std::string given = trimmed(name);
    return RadioStation{given.empty() ? host : given, url};
}

} // namespace phone

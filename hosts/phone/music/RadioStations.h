// The stations that the radio offers: those of the product's configuration until the user changes the list.
//
// The user's list is a property-list file on the device, read at every call and written whole; what in it is
// no station is left out. There must be a device root.
#pragma once

#include "hosts/phone/music/RadioStation.h"

#include <optional>
#include <vector>

namespace phone {

class RadioStations {
public:
    static constexpr const char* path = "/var/mobile/Library/Preferences/com.apple.radio.plist";
    static constexpr const char* configurationPath = "/Library/Application Support/Vela/configuration.plist";
    static constexpr const char* listKey = "Radio stations";
    static constexpr std::size_t mostStations = 500;

    static std::vector<RadioStation> all();
    /// At the list's end. False when the list is full or cannot be written.
    static bool add(const RadioStation& station);
    /// False when there is no station of that number or the list cannot be written.
    static bool remove(std::size_t index);

    /// What people type as a station: an address with "http://" put before it when it has no scheme, and the
    /// host's name for an empty name. Nothing for what is no address of the web.
    static std::optional<RadioStation> fromInput(const std::string& name, const std::string& address);
};

} // namespace phone

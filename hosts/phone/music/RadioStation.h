// A station of the radio.
#pragma once

#include <string>

namespace phone {

struct RadioStation {
    std::string name;
    std::string url; // "http:" or "https:"

    friend bool operator==(const RadioStation&, const RadioStation&) = default;
};

} // namespace phone

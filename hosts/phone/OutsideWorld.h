// How the phone reaches programs beside it, such as a browser. An address is a URL.
#pragma once

#include <functional>
#include <string>

namespace phone {

struct OutsideWorld {
    /// Whether some program opens addresses of this kind. Empty: there is one for every kind.
    std::function<bool(const std::string& address)> canOpen;
    /// Opens an address. Empty: it is noted, and nothing more.
    std::function<void(const std::string& address)> open;
};

} // namespace phone

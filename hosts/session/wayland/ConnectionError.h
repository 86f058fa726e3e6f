// The compositor cannot be reached, or lacks what the panels cannot be shown without.
#pragma once

#include <stdexcept>

namespace session {

class ConnectionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace session

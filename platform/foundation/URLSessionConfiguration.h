// How patient a session is, and what it adds to its requests.
#pragma once

#include <map>
#include <string>

namespace foundation {

struct URLSessionConfiguration {
    /// Seconds in which hardly anything may arrive: less than HTTPTransfer::leastSpeed over that long is an
    /// end, be it no answer at all or one byte a second.
    double timeoutIntervalForRequest = 60;
    /// Seconds that a task may take from its start to its end.
    double timeoutIntervalForResource = 600;
    int HTTPMaximumConnectionsPerHost = 6;
    /// Sent with every request that does not name them itself.
    std::map<std::string, std::string> HTTPAdditionalHeaders = {};
};

} // namespace foundation

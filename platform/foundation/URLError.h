// Why a URL could not be loaded.
#pragma once

#include <string>

namespace foundation {

/// The numbers are the platform's.
enum class URLErrorCode : int {
    Unknown = -1,
    Cancelled = -999,
    BadURL = -1000,
    TimedOut = -1001,
    UnsupportedURL = -1002,
    CannotFindHost = -1003,
    CannotConnectToHost = -1004,
    NetworkConnectionLost = -1005,
    TooManyRedirects = -1007,
    NotConnectedToInternet = -1009,
    BadServerResponse = -1011,
    DataLengthExceedsMaximum = -1103,
    SecureConnectionFailed = -1200,
    CannotCreateFile = -3000,
};

struct URLError {
    URLErrorCode code = URLErrorCode::Unknown;
    std::string description;
};

} // namespace foundation

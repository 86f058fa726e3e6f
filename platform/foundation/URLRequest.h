// What is asked of a server, and what it answers.
#pragma once

#include "platform/foundation/URLError.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace foundation {

struct URLRequest {
    /// An absolute address of the scheme http or https, already percent-encoded.
    std::string url;
    std::string method = "GET";
    std::map<std::string, std::string> headers = {};
    /// The most that is received, in bytes; an answer that is larger, or says that it will be, is an error.
    std::size_t maximumBytes = 32 * 1024 * 1024;
};

struct URLResponse {
    /// 0 when none came.
    int statusCode = 0;
    /// By lower-case names; of a repeated header the last.
    std::map<std::string, std::string> headers;
};

struct URLAnswer {
    /// Empty with an error.
    std::vector<std::uint8_t> body;
    URLResponse response;
    std::optional<URLError> error;
};

} // namespace foundation

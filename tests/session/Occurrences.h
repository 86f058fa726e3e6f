// How often something stands in a log.
#pragma once

#include <cstddef>
#include <string>

namespace tests {

/// How often `part` begins in `text`.
inline std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (auto place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
        ++found;
    return found;
}

} // namespace tests

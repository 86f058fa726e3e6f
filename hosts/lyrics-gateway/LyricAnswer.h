// What came of looking for a lyric.
#pragma once

#include <string>

namespace gateway {

struct LyricAnswer {
    enum class Kind {
        Text,
        None,   // there is none, which is certain
        Failed, // nobody knows
    };
    Kind kind = Kind::None;
    std::string text = {};
};

} // namespace gateway

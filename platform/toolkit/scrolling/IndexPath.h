// The place of an item in a list of sections.
#pragma once

#include <compare>

namespace toolkit {

struct IndexPath {
    int section = 0;
    int item = 0;

    int row() const { return item; }
    friend auto operator<=>(const IndexPath&, const IndexPath&) = default;
};

} // namespace toolkit

// The difference between two frames' lists.
#pragma once

#include "platform/toolkit/layers/DisplayItem.h"

namespace toolkit {

struct DisplayChange {
    PixelRect rect;
    /// What lies at a greater index of the new list lies above the change.
    std::ptrdiff_t order = 0;
};

struct DisplayListChanges {
    std::vector<DisplayChange> changes;
    /// For each item of the new list: whether it is new, looks different or has changed places.
    std::vector<bool> isChanged;
    /// Of what has gone or changed: the trees of the old list that it belonged to.
    std::vector<std::size_t> changedOldRoots;
};

DisplayListChanges compareDisplayLists(const std::vector<DisplayItem>& before,
                                       const std::vector<DisplayItem>& after);

} // namespace toolkit

#include "platform/toolkit/layers/DisplayListChanges.h"

#include <limits>
#include <unordered_map>

namespace toolkit {

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

std::uint64_t keyOf(const DisplayItem& item) {
    return item.layerId * 4 + static_cast<std::uint64_t>(item.part);
}

/// For each item after: its index before, or none.
std::vector<std::size_t> findBefore(const std::vector<DisplayItem>& before,
                                    const std::vector<DisplayItem>& after) {
    std::vector<std::size_t> result(after.size(), none);
    std::size_t start = 0;
    while (start < before.size() && start < after.size() && before[start].isSameThing(after[start])) {
        result[start] = start;
        ++start;
    }
    if (start == after.size())
        return result;
    std::unordered_map<std::uint64_t, std::size_t> places;
    for (std::size_t i = start; i < before.size(); ++i)
        places.emplace(keyOf(before[i]), i);
    for (std::size_t i = start; i < after.size(); ++i)
        if (const auto place = places.find(keyOf(after[i])); place != places.end())
            result[i] = place->second;
    return result;
}

/// Takes the matches out of `matches` that cross others: the longest increasing run of the rest stays, so of
/// two items that overlap and have changed places at least one counts as changed.
void removeCrossing(std::vector<std::size_t>& matches) {
    std::vector<std::size_t> tails; // indices after, by the length of the run that they end
    std::vector<std::size_t> previous(matches.size(), none);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        if (matches[i] == none)
            continue;
        const auto at =
            std::lower_bound(tails.begin(), tails.end(), matches[i],
                             [&](std::size_t tail, std::size_t value) { return matches[tail] < value; });
        if (at != tails.begin())
            previous[i] = *(at - 1);
        if (at == tails.end())
            tails.push_back(i);
        else
            *at = i;
    }
    std::vector<bool> stays(matches.size(), false);
    for (std::size_t i = tails.empty() ? none : tails.back(); i != none; i = previous[i])
        stays[i] = true;
    for (std::size_t i = 0; i < matches.size(); ++i)
        if (!stays[i])
            matches[i] = none;
}

} // namespace

DisplayListChanges compareDisplayLists(const std::vector<DisplayItem>& before,
                                       const std::vector<DisplayItem>& after) {
    DisplayListChanges result;
    result.isChanged.assign(after.size(), false);
    std::vector<std::size_t> matches = findBefore(before, after);
    removeCrossing(matches);
    std::size_t nextBefore = 0;
    const auto removeUpTo = [&](std::size_t end, std::size_t below) {
        for (; nextBefore < end; ++nextBefore) {
            result.changes.push_back({before[nextBefore].extents, static_cast<std::ptrdiff_t>(below) - 1});
            result.changedOldRoots.push_back(before[nextBefore].root);
        }
    };
    for (std::size_t i = 0; i < after.size(); ++i) {
        const auto order = static_cast<std::ptrdiff_t>(i);
        if (matches[i] == none) {
            result.changes.push_back({after[i].extents, order});
            result.isChanged[i] = true;
            continue;
        }
        removeUpTo(matches[i], i);
        nextBefore = matches[i] + 1;
        const DisplayItem& old = before[matches[i]];
        if (old.looksLike(after[i]))
            continue;
        result.changes.push_back({old.extents, order});
        result.changes.push_back({after[i].extents, order});
        result.changedOldRoots.push_back(old.root);
        result.isChanged[i] = true;
    }
    removeUpTo(before.size(), after.size());
    return result;
}

} // namespace toolkit

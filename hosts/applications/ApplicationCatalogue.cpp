#include "hosts/applications/ApplicationCatalogue.h"

#include <algorithm>
#include <array>

namespace applications {

namespace {
constexpr std::array entries{calendar, clock, radio, music, photos, notes, settings, webViewService};
} // namespace

std::span<const CatalogueEntry> catalogue() {
    return entries;
}

const CatalogueEntry* catalogueEntry(std::string_view bundleIdentifier) {
    const auto found =
        std::find_if(entries.begin(), entries.end(), [bundleIdentifier](const CatalogueEntry& entry) {
            return entry.bundleIdentifier == bundleIdentifier;
        });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace applications

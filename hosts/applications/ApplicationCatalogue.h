// The applications that a phone comes with, for all programs that show them: what they are called, and their
// icons. Services without a face have the generic icon.
#pragma once

#include "hosts/applications/IconArtwork.h"

#include <span>
#include <string_view>

namespace applications {

struct CatalogueEntry {
    const char* bundleIdentifier;
    const char* name;
    IconKind icon;
};

inline constexpr CatalogueEntry calendar{"com.apple.mobilecal", "Calendar", IconKind::Calendar};
inline constexpr CatalogueEntry clock{"com.apple.mobiletimer", "Clock", IconKind::Clock};
inline constexpr CatalogueEntry radio{"com.apple.Radio", "Radio", IconKind::Radio};
inline constexpr CatalogueEntry music{"com.apple.Music", "Music", IconKind::Music};
inline constexpr CatalogueEntry photos{"com.apple.mobileslideshow", "Photos", IconKind::Photos};
inline constexpr CatalogueEntry notes{"com.apple.mobilenotes", "Notes", IconKind::Notes};
inline constexpr CatalogueEntry settings{"com.apple.Preferences", "Settings", IconKind::Settings};
inline constexpr CatalogueEntry webViewService{"com.apple.WebViewService", "WebViewService",
                                               IconKind::Generic};

/// All of them, services included.
std::span<const CatalogueEntry> catalogue();
/// Null for an identifier that is none of theirs.
const CatalogueEntry* catalogueEntry(std::string_view bundleIdentifier);

} // namespace applications

// The process-wide door to everything that the product keeps on disk: settings, lyrics, artworks, plug-ins.
//
// Nothing is cached: every call reads the files afresh, which is how a change made in the settings process is
// seen here without any message between the two. Writes replace the whole file atomically; two writers do not
// lock each other out, the last one wins. A missing or unreadable file reads as an empty one, a failed write
// is silent. The one instance is never destroyed.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <map>
#include <optional>
#include <string>

namespace vela {

class VelaSettingsManager {
public:
    static VelaSettingsManager& sharedInstance();

    VelaSettingsManager(const VelaSettingsManager&) = delete;
    VelaSettingsManager& operator=(const VelaSettingsManager&) = delete;

    // Preferences.

    /// The value stored under `key`, or nil.
    foundation::PropertyList getPreferenceForKey(const std::string& key) const;
    /// Stores one value and keeps every other entry of the file as it now stands.
    void setPreference(const foundation::PropertyList& value, const std::string& key);

    /// Width of the touch strips in points: 30 for "Height", 5 for "Low", 15 for everything else.
    float sensibilityOfVelaGrabber() const;
    /// "full", "half_top", "half_bottom", whatever else is stored, or nil.
    foundation::PropertyList grabberHeight() const;
    bool isLeftControllerDisabled() const;
    /// Whether the chevrons lie on the dimmed area ("Alternative chevrons") instead of on the panels.
    bool isChevronsHidden() const;
    /// NO exactly when "Lockscreen" is on.
    bool isVelaAccessibleFromLockScreen() const;
    /// "artist" for a stored "queue", else what is stored, nil included.
    foundation::PropertyList getTypeOfEntityToLoad() const;
    /// YES once, which the file then remembers, NO ever after.
    bool canShowTutorial();

    // Plug-ins. The folder is listed anew on each call.

    /// What each plug-in's bundle says of itself, by identifier.
    using VelaApps = std::map<std::string, foundation::PropertyList::Dictionary>;
    /// The plug-ins that are not hidden; of several bundles with one identifier the last listed. Nothing, and
    /// a log line, when the folder cannot be listed.
    std::optional<VelaApps> getVelaApps() const;
    /// The bundle's directory with a slash at its end, hidden or not; of several the first listed. Nothing
    /// for an unknown identifier.
    std::optional<std::string> getBundlePathByIdentifier(const std::string& identifier) const;

private:
    VelaSettingsManager() = default;
};

} // namespace vela

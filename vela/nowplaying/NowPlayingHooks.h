// The methods through which the now-playing controls' reports reach the music panel.
//
// Each runs the replaced implementation first. Main thread only.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/runtime/Object.h"

#include <functional>
#include <optional>
#include <string>

namespace vela::nowplaying {

using foundation::PropertyList;
using runtime::Object;

/// For plug-ins: with the information as it came, nil included, and with the seconds as a number.
inline constexpr const char* trackDidChangeNotification = "VelaTrackDidChangeNotification";
inline constexpr const char* elapsedTimeDidChangeNotification = "VelaElapsedTimeDidChangeNotification";

/// `bundleIdentifier` names the application that plays; nothing when there is none.
void applicationDidChange(Object& self, Object* controller, std::optional<std::string> bundleIdentifier);
void playbackStateDidChange(Object& self, Object* controller, bool playing);
void infoDidChange(Object& self, Object* controller, PropertyList info);
void elapsedTimeDidChange(Object& self, Object* controller, double elapsed);
void launchCurrentNowPlayingApp(Object& self);

inline std::function<void(Object&, Object*, std::optional<std::string>)> originalApplicationDidChange;
inline std::function<void(Object&, Object*, bool)> originalPlaybackStateDidChange;
inline std::function<void(Object&, Object*, PropertyList)> originalInfoDidChange;
inline std::function<void(Object&, Object*, double)> originalElapsedTimeDidChange;
inline std::function<void(Object&)> originalLaunchCurrentNowPlayingApp;

} // namespace vela::nowplaying

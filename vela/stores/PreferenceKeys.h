// Keys of the preferences file. Most are the titles of the rows that edit them. Beside these, every
// application's bundle identifier is a key: YES switches the product off while that application is in front.
#pragma once

namespace vela::keys {

inline constexpr const char* enable = "Enable";
inline constexpr const char* sensibility = "Sensibility";
inline constexpr const char* grabberHeight = "Grabber height";
inline constexpr const char* disableLeftController = "Disable Left Controller";
inline constexpr const char* alternativeChevrons = "Alternative chevrons";
inline constexpr const char* lockscreen = "Lockscreen";
inline constexpr const char* keyboard = "Keyboard";
inline constexpr const char* loadSongsWith = "Load songs with";
inline constexpr const char* blur = "Blur";
inline constexpr const char* autoscroll = "Autoscroll";
inline constexpr const char* leftSizePortrait = "left_size_portrait";
inline constexpr const char* leftSizeLandscape = "left_size_landscape";
inline constexpr const char* rightSizePortrait = "right_size_portrait";
inline constexpr const char* rightSizeLandscape = "right_size_landscape";
inline constexpr const char* tutorial = "tutorial";

} // namespace vela::keys

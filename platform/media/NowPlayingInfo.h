// The keys of the dictionary that says what plays now.
//
// Every key may be missing; a player tells what it knows.
#pragma once

namespace media {

inline constexpr const char* kMRMediaRemoteNowPlayingInfoTitle = "kMRMediaRemoteNowPlayingInfoTitle";
inline constexpr const char* kMRMediaRemoteNowPlayingInfoArtist = "kMRMediaRemoteNowPlayingInfoArtist";
inline constexpr const char* kMRMediaRemoteNowPlayingInfoAlbum = "kMRMediaRemoteNowPlayingInfoAlbum";
/// Seconds; missing for a stream without an end.
inline constexpr const char* kMRMediaRemoteNowPlayingInfoDuration = "kMRMediaRemoteNowPlayingInfoDuration";
/// Seconds, when the information was made.
inline constexpr const char* kMRMediaRemoteNowPlayingInfoElapsedTime =
    "kMRMediaRemoteNowPlayingInfoElapsedTime";
/// Seconds of the song in a second of time: 1 while it plays, 0 while it is paused.
inline constexpr const char* kMRMediaRemoteNowPlayingInfoPlaybackRate =
    "kMRMediaRemoteNowPlayingInfoPlaybackRate";
/// The persistent identifier of a song of the library, a whole number.
inline constexpr const char* kMRMediaRemoteNowPlayingInfoUniqueIdentifier =
    "kMRMediaRemoteNowPlayingInfoUniqueIdentifier";
/// Name of the radio station, for a stream.
inline constexpr const char* kMRMediaRemoteNowPlayingInfoRadioStationName =
    "kMRMediaRemoteNowPlayingInfoRadioStationName";

} // namespace media

// What became of the search for a lyric, as the downloads tell the lyric view.
#pragma once

namespace vela {

/// The numbers are part of the agreement between the two.
enum class LyricResult : int {
    NoLyric = 0,
    SongNotUsable = 1, // it lacks a title or an artist
    TransferFailed = 2,
    TextPresent = 3,
};

} // namespace vela

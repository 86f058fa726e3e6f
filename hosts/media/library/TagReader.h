// Tags, covers and words of audio files.
//
// Files are hostile: whatever they hold, no more than a share of them is read, and what is answered can be
// used. The library that reads them cannot be trusted with everything, though: files of which nothing is
// known are read by a process of their own (see TagProcess.h). Any thread.
#pragma once

#include "hosts/media/library/SongTags.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace playback {

/// Whether a file's name is that of a kind of audio file which is known here.
bool isAudioFileName(std::string_view name);

/// Nothing for a file that is unreadable or holds no sound.
std::optional<SongTags> readTags(const std::filesystem::path& file);
/// The picture that stands for the song, as the bytes of a picture's file; empty when there is none, or one
/// of more than maximumCoverBytes.
std::vector<std::uint8_t> readCover(const std::filesystem::path& file);
/// The words, with lines ending in "\n"; nothing when there are none.
std::optional<std::string> readLyrics(const std::filesystem::path& file);

inline constexpr std::size_t maximumCoverBytes = 16 * 1024 * 1024;
inline constexpr std::size_t maximumLyricsBytes = 1024 * 1024;

} // namespace playback

// Audio files of any bytes: whatever their tags hold, what is read is fit to be shown.
//
// The first byte says what the file is called. Larger files are left to the process that reads tags.
#include "hosts/media/library/TagReader.h"

#include <array>
#include <cstdlib>

#include <glib.h>
#include <unistd.h>

namespace {

constexpr std::size_t largestFile = 16 * 1024;
constexpr std::array<const char*, 6> names = {"a.mp3", "a.flac", "a.ogg", "a.opus", "a.m4a", "a.wv"};

void check(const std::string& text, std::size_t limit) {
    if (text.size() > limit || !g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr))
        std::abort();
}

/// A file of these bytes under a name, in a directory of this process's own.
std::filesystem::path fileOf(const char* name, const std::uint8_t* data, std::size_t size) {
    static const std::string directory = [] {
        std::string pattern = "/dev/shm/fuzz-tags-XXXXXX";
        if (!mkdtemp(pattern.data()))
            std::abort();
        return pattern;
    }();
    const std::string path = directory + '/' + name;
    g_file_set_contents(path.c_str(), reinterpret_cast<const char*>(data), static_cast<gssize>(size),
                        nullptr);
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || size > largestFile)
        return 0;
    const auto path = fileOf(names[data[0] % names.size()], data + 1, size - 1);
    if (const auto tags = playback::readTags(path)) {
        for (const auto* text :
             {&tags->title, &tags->artist, &tags->album, &tags->albumArtist, &tags->composer, &tags->genre})
            check(*text, 4096);
        if (!(tags->duration >= 0) || tags->trackNumber > 9999 || tags->discNumber > 9999)
            std::abort();
    }
    if (const auto words = playback::readLyrics(path))
        check(*words, playback::maximumLyricsBytes);
    playback::readCover(path);
    return 0;
}

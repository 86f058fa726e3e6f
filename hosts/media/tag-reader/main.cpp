// vela-tag-reader: answers the tags of files. Files are hostile, so this is a process that may go under.
//
// Reads paths, each ending in NUL, from standard input, and writes for each the length of its answer and the
// answer: the bytes that hosts/media/library/SongTagsCoding.h knows.
#include "hosts/media/library/SongTagsCoding.h"
#include "hosts/media/library/TagReader.h"

#include <cstdio>
#include <iostream>

#include <sys/resource.h>

namespace {

/// Enough for every tag that is one.
constexpr rlim_t mostMemory = 512UL * 1024 * 1024;
/// So that what the user sees comes first.
constexpr int niceness = 10;

void limitResources() {
    setpriority(PRIO_PROCESS, 0, niceness);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore); // a crash is no news here
#if !defined(__SANITIZE_ADDRESS__)   // which needs an address space of terabytes
    const rlimit memory{mostMemory, mostMemory};
    setrlimit(RLIMIT_AS, &memory);
#endif
}

void answer(const std::string& path) {
    playback::ByteWriter tags;
    playback::writeTags(tags, playback::readTags(path));
    playback::ByteWriter header;
    header.number(tags.bytes().size());
    for (const auto* bytes : {&header.bytes(), &tags.bytes()})
        std::fwrite(bytes->data(), 1, bytes->size(), stdout);
    std::fflush(stdout);
}

} // namespace

int main() {
    limitResources();
    std::string path;
    while (std::getline(std::cin, path, '\0'))
        answer(path);
    return 0;
}

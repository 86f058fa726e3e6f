#include "hosts/session/program/MemoryUse.h"

#include "platform/media/CoverStore.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <malloc.h>

namespace session {

namespace {

constexpr int arenas = 1;
/// Pictures are larger, and come and go; everything else is smaller.
constexpr int pictureBytes = 128 * 1024;

} // namespace

/// An arena for each thread would keep what decoding a cover or reading the library needed for a moment, and
/// an allocator that adapts itself would soon keep the pictures as well.
void MemoryUse::keepLow() {
    mallopt(M_ARENA_MAX, arenas);
    mallopt(M_MMAP_THRESHOLD, pictureBytes);
    mallopt(M_TRIM_THRESHOLD, pictureBytes);
}

void MemoryUse::letGoOfSpare() {
    toolkit::WindowServer::shared().forgetPictures();
    media::CoverStore::shared().forgetUnused();
    malloc_trim(0);
}

} // namespace session

#include "hosts/session/surfaces/ShmBuffer.h"

#include "hosts/session/wayland/Protocols.h"
#include "platform/foundation/FileDescriptor.h"

#include <new>

#include <sys/mman.h>

namespace session {

namespace {

constexpr int mostBytes = 1 << 29;

} // namespace

ShmBuffer::ShmBuffer(wl_shm& shm, int width, int height)
    : ShmBuffer(shm, width, height, width * 4, WL_SHM_FORMAT_ARGB8888) {}

ShmBuffer::ShmBuffer(wl_shm& shm, int width, int height, int bytesPerRow, std::uint32_t format)
    : width_(width),
      height_(height),
      bytesPerRow_(bytesPerRow),
      byteCount_(static_cast<std::size_t>(bytesPerRow) * static_cast<std::size_t>(height)) {
    if (width < 1 || height < 1 || bytesPerRow / 4 < width || byteCount_ > mostBytes)
        throw std::bad_alloc();
    const foundation::FileDescriptor file(memfd_create("vela-session", MFD_CLOEXEC));
    if (!file || ftruncate(file.number(), static_cast<off_t>(byteCount_)) != 0)
        throw std::bad_alloc();
    void* memory = mmap(nullptr, byteCount_, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    pixels_ = static_cast<std::uint8_t*>(memory);
    static constexpr wl_buffer_listener listener{
        [](void* data, wl_buffer*) { static_cast<ShmBuffer*>(data)->busy_ = false; }};
    const Proxy<wl_shm_pool> pool(wl_shm_create_pool(&shm, file.number(), static_cast<int>(byteCount_)));
    buffer_.reset(wl_shm_pool_create_buffer(pool.get(), 0, width, height, bytesPerRow, format));
    wl_buffer_add_listener(buffer_.get(), &listener, this);
}

ShmBuffer::~ShmBuffer() {
    munmap(pixels_, byteCount_);
}

} // namespace session

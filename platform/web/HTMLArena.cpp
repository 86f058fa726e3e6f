#include "platform/web/HTMLArena.h"

#include <algorithm>
#include <new>

namespace web {

void* HTMLArena::allocate(std::size_t size) {
    constexpr std::size_t alignment = alignof(std::max_align_t);
    if (size > left_)
        return nullptr;
    const std::size_t taken = (std::max<std::size_t>(size, 1) + alignment - 1) / alignment * alignment;
    if (taken > room_) {
        const std::size_t length = std::max(taken, blockSize);
        if (length > left_)
            return nullptr;
        std::unique_ptr<std::byte[]> block(new (std::nothrow) std::byte[length]);
        if (!block)
            return nullptr;
        left_ -= length;
        next_ = block.get();
        room_ = length;
        blocks_.push_back(std::move(block));
    }
    void* result = next_;
    next_ += taken;
    room_ -= taken;
    return result;
}

} // namespace web

// Memory for one page's tree: given out piece by piece, taken back all at once, with a limit.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace web {

class HTMLArena {
public:
    explicit HTMLArena(std::size_t limit) : left_(limit) {}
    HTMLArena(const HTMLArena&) = delete;
    HTMLArena& operator=(const HTMLArena&) = delete;

    /// Null when the limit, or the machine's memory, is reached.
    void* allocate(std::size_t size);

private:
    static constexpr std::size_t blockSize = 64 * 1024;
    std::size_t left_;
    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::byte* next_ = nullptr;
    std::size_t room_ = 0;
};

} // namespace web

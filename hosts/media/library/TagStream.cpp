#include "hosts/media/library/TagStream.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace playback {

namespace {

/// Enough for a song's tags with the largest covers that people put there.
constexpr unsigned long bytesToRead = 24UL * 1024 * 1024;

} // namespace

TagStream::TagStream(const std::filesystem::path& path) : path_(path), budget_(bytesToRead) {
    // Without blocking, so that a pipe with the name of a song does not hold the reader up.
    foundation::FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    length_ = status.st_size;
    file_ = std::move(file);
}

TagLib::ByteVector TagStream::readBlock(unsigned long length) {
    const auto rest = static_cast<unsigned long>(std::max(0L, length_ - position_));
    length = std::min({length, rest, budget_});
    if (length == 0 || !isOpen())
        return {};
    TagLib::ByteVector block(static_cast<unsigned int>(length));
    unsigned long filled = 0;
    while (filled < length) {
        const ssize_t count = pread(file_.number(), block.data() + filled, length - filled,
                                    position_ + static_cast<long>(filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        filled += static_cast<unsigned long>(count);
    }
    block.resize(static_cast<unsigned int>(filled));
    position_ += static_cast<long>(filled);
    budget_ -= filled;
    return block;
}

void TagStream::seek(long offset, Position position) {
    const long origin = position == Current ? position_ : position == End ? length_ : 0;
    if (!__builtin_add_overflow(origin, offset, &position_))
        position_ = std::max(0L, position_);
    else
        position_ = length_;
}

} // namespace playback

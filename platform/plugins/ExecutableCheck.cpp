#include "platform/plugins/ExecutableCheck.h"

#include "platform/foundation/FileDescriptor.h"

#include <cstring>
#include <optional>
#include <vector>

#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plugins {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

constexpr std::size_t mostSegments = 256;

bool readAt(int file, std::uint64_t offset, void* into, std::size_t count) {
    return pread(file, into, count, static_cast<off_t>(offset)) == static_cast<ssize_t>(count);
}

std::optional<Header> headerOf(int file) {
    Header header;
    if (!readAt(file, 0, &header, sizeof header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
        return std::nullopt;
    return header;
}

const std::optional<Header>& ownHeader() {
    static const std::optional<Header> header = [] {
        const foundation::FileDescriptor file(open("/proc/self/exe", O_RDONLY | O_CLOEXEC));
        return file ? headerOf(file.number()) : std::nullopt;
    }();
    return header;
}

bool isForThisMachine(const Header& header) {
    const auto& own = ownHeader();
    return own && header.e_machine == own->e_machine && header.e_ident[EI_CLASS] == own->e_ident[EI_CLASS] &&
           header.e_ident[EI_DATA] == own->e_ident[EI_DATA];
}

bool lieWithin(const std::vector<Segment>& segments, std::uint64_t fileSize) {
    for (const Segment& segment : segments)
        if (segment.p_filesz > fileSize || segment.p_offset > fileSize - segment.p_filesz)
            return false;
    return true;
}

/// Whether the parts of the file that are to be mapped are all there.
bool isWhole(int file, const Header& header) {
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    if (header.e_phentsize != sizeof(Segment) || header.e_phnum == 0 || header.e_phnum > mostSegments)
        return false;
    std::vector<Segment> segments(header.e_phnum);
    return readAt(file, header.e_phoff, segments.data(), segments.size() * sizeof(Segment)) &&
           lieWithin(segments, static_cast<std::uint64_t>(status.st_size));
}

} // namespace

bool isLoadableHere(const std::filesystem::path& path) {
    const foundation::FileDescriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const auto header = file ? headerOf(file.number()) : std::nullopt;
    return header && header->e_type == ET_DYN && isForThisMachine(*header) && isWhole(file.number(), *header);
}

} // namespace plugins

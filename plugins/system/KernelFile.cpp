#include "KernelFile.h"

#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace systemplugin {

namespace {
constexpr std::size_t limit = 256 * 1024;

class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~OpenFile() {
        if (file_ >= 0)
            close(file_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isRegular() const {
        struct stat status {};
        return file_ >= 0 && fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
    }
    ssize_t read(char* into, std::size_t size) const {
        ssize_t count = 0;
        do
            count = ::read(file_, into, size);
        while (count < 0 && errno == EINTR);
        return count;
    }

private:
    int file_;
};
} // namespace

std::optional<std::string> readKernelFile(const std::string& path) {
    const OpenFile file(path);
    if (!file.isRegular())
        return std::nullopt;
    std::string text;
    char buffer[4096];
    while (text.size() < limit) {
        const ssize_t count = file.read(buffer, sizeof buffer);
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        text.append(buffer, static_cast<std::size_t>(count));
    }
    return text;
}

} // namespace systemplugin

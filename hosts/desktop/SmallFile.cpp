#include "hosts/desktop/SmallFile.h"

#include <fstream>

namespace desktop {

std::optional<std::string> readSmallFile(const std::filesystem::path& file, std::size_t maximumBytes) {
    std::error_code error;
    // Opening anything else might wait for somebody at its other end.
    if (!std::filesystem::is_regular_file(file, error))
        return std::nullopt;
    const auto size = std::filesystem::file_size(file, error);
    if (error || size > maximumBytes)
        return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    std::string content(size, '\0');
    stream.read(content.data(), static_cast<std::streamsize>(size));
    if (stream.bad() || !stream.is_open())
        return std::nullopt;
    content.resize(static_cast<std::size_t>(stream.gcount()));
    return content;
}

} // namespace desktop

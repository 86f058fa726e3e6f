#include "hosts/lyrics-gateway/LyricFiles.h"

#include "hosts/lyrics-gateway/LyricText.h"
#include "platform/foundation/Utf8Validation.h"

#include <algorithm>
#include <fstream>
#include <memory>

#include <glib.h>

namespace gateway {

namespace {

using Path = std::filesystem::path;

constexpr const char* plain = ".txt";
constexpr const char* timed = ".lrc";

/// A name in the form in which names are compared.
std::string comparable(std::string name) {
    std::replace(name.begin(), name.end(), '/', '_');
    if (!foundation::isValidUtf8(name))
        return name;
    const std::unique_ptr<char, void (*)(void*)> folded(
        g_utf8_casefold(name.data(), static_cast<gssize>(name.size())), g_free);
    const std::unique_ptr<char, void (*)(void*)> normal(
        g_utf8_normalize(folded.get(), -1, G_NORMALIZE_DEFAULT_COMPOSE), g_free);
    return normal ? normal.get() : name;
}

/// The file of that name; of several the plain one, then the first by name.
std::optional<Path> fileNamed(const Path& directory, const std::string& name) {
    std::error_code error;
    std::optional<Path> best;
    const auto rank = [](const Path& path) { return std::make_pair(path.extension() != plain, path); };
    for (std::filesystem::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const Path& path = entry->path();
        const std::string extension = path.extension();
        if ((extension == plain || extension == timed) && comparable(path.stem()) == name &&
            (!best || rank(path) < rank(*best)))
            best = path;
    }
    return best;
}

std::optional<std::string> contentOf(const Path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    std::string content(LyricFiles::largestFile + 1, '\0');
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(stream.gcount()));
    return content.size() <= LyricFiles::largestFile ? std::optional(content) : std::nullopt;
}

} // namespace

std::optional<std::string> LyricFiles::find(const std::string& artist, const std::string& title) const {
    const std::string name = comparable(artist + " - " + title);
    for (const Path& directory : directories_) {
        const auto file = fileNamed(directory, name);
        const auto content = file ? contentOf(*file) : std::nullopt;
        if (!content)
            continue;
        std::string text = tidied(file->extension() == timed ? withoutTimeTags(*content) : *content);
        if (!text.empty())
            return text;
    }
    return std::nullopt;
}

} // namespace gateway

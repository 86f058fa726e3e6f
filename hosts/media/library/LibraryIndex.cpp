#include "hosts/media/library/LibraryIndex.h"

#include "hosts/media/library/SongTagsCoding.h"
#include "platform/foundation/FileManager.h"

#include <cstring>
#include <memory>
#include <string_view>

#include <glib.h>

namespace playback {

namespace {

// The file: the mark, the checksum of all that follows, then the entries.
constexpr std::string_view mark = "Vela music index 1\n";
constexpr std::size_t checksumLength = 40; // SHA-1 in hexadecimal digits

std::string checksumOf(std::span<const std::uint8_t> bytes) {
    const std::unique_ptr<char, void (*)(gpointer)> text(
        g_compute_checksum_for_data(G_CHECKSUM_SHA1, bytes.data(), bytes.size()), g_free);
    return text.get();
}

void writeEntry(ByteWriter& writer, const LibraryEntry& entry) {
    writer.text(entry.file.path);
    writer.number(static_cast<std::uint64_t>(entry.file.modified));
    writer.number(entry.file.size);
    writeTags(writer, entry.tags);
}

LibraryEntry readEntry(ByteReader& reader) {
    LibraryEntry entry;
    entry.file.path = reader.text();
    entry.file.modified = static_cast<std::int64_t>(reader.number());
    entry.file.size = reader.number();
    entry.tags = readTags(reader);
    return entry;
}

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

std::vector<std::uint8_t> LibraryIndex::encode(const std::vector<LibraryEntry>& entries) {
    ByteWriter writer;
    auto& bytes = writer.bytes();
    bytes.assign(mark.begin(), mark.end());
    bytes.resize(mark.size() + checksumLength);
    for (const LibraryEntry& entry : entries)
        writeEntry(writer, entry);
    const std::string checksum = checksumOf(std::span(bytes).subspan(mark.size() + checksumLength));
    std::memcpy(bytes.data() + mark.size(), checksum.data(), checksumLength);
    return std::move(bytes);
}

std::optional<std::vector<LibraryEntry>> LibraryIndex::decode(std::span<const std::uint8_t> bytes) {
    if (!textOf(bytes).starts_with(mark) || bytes.size() < mark.size() + checksumLength)
        return std::nullopt;
    const auto content = bytes.subspan(mark.size() + checksumLength);
    if (textOf(bytes.subspan(mark.size(), checksumLength)) != checksumOf(content))
        return std::nullopt;
    std::vector<LibraryEntry> entries;
    ByteReader reader(content);
    while (!reader.atEnd() && !reader.failed())
        entries.push_back(readEntry(reader));
    if (reader.failed())
        return std::nullopt;
    return entries;
}

std::vector<LibraryEntry> LibraryIndex::read() const {
    const auto bytes = foundation::FileManager::shared().read(devicePath_);
    auto entries = bytes ? decode(*bytes) : std::nullopt;
    return entries ? std::move(*entries) : std::vector<LibraryEntry>();
}

bool LibraryIndex::write(const std::vector<LibraryEntry>& entries) const {
    const auto& files = foundation::FileManager::shared();
    return files.createDirectories(std::filesystem::path(devicePath_).parent_path().string()) &&
           files.writeAtomically(devicePath_, encode(entries));
}

} // namespace playback

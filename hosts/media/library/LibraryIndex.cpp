#include "hosts/media/library/LibraryIndex.h"

#include "platform/foundation/FileManager.h"

#include <bit>
#include <cstring>
#include <memory>
#include <string_view>

#include <glib.h>

namespace playback {

namespace {

// The file: the mark, the checksum of all that follows, then the entries. Numbers are little-endian.
constexpr std::string_view mark = "Vela music index 1\n";
constexpr std::size_t checksumLength = 40; // SHA-1 in hexadecimal digits

std::string checksumOf(std::span<const std::uint8_t> bytes) {
    const std::unique_ptr<char, void (*)(gpointer)> text(
        g_compute_checksum_for_data(G_CHECKSUM_SHA1, bytes.data(), bytes.size()), g_free);
    return text.get();
}

class Writer {
public:
    void number(std::uint64_t value) {
        for (int shift = 0; shift < 64; shift += 8)
            bytes_.push_back(static_cast<std::uint8_t>(value >> shift));
    }
    void text(std::string_view value) {
        number(value.size());
        bytes_.insert(bytes_.end(), value.begin(), value.end());
    }
    std::vector<std::uint8_t>& bytes() { return bytes_; }

private:
    std::vector<std::uint8_t> bytes_;
};

/// Reads what a Writer wrote; once the bytes do not suffice, it has failed and answers zeros.
class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    std::uint64_t number() {
        std::uint64_t value = 0;
        const auto bytes = take(8);
        for (std::size_t index = 0; index < bytes.size(); ++index)
            value |= std::uint64_t{bytes[index]} << (8 * index);
        return value;
    }
    std::string text() {
        const auto bytes = take(number());
        return {bytes.begin(), bytes.end()};
    }
    bool failed() const { return failed_; }
    bool atEnd() const { return rest_.empty(); }

private:
    std::span<const std::uint8_t> take(std::uint64_t count) {
        failed_ |= count > rest_.size();
        if (failed_)
            return {};
        const auto bytes = rest_.first(static_cast<std::size_t>(count));
        rest_ = rest_.subspan(bytes.size());
        return bytes;
    }

    std::span<const std::uint8_t> rest_;
    bool failed_ = false;
};

void writeEntry(Writer& writer, const LibraryEntry& entry) {
    writer.text(entry.file.path);
    writer.number(static_cast<std::uint64_t>(entry.file.modified));
    writer.number(entry.file.size);
    writer.number(entry.tags.has_value());
    if (!entry.tags)
        return;
    const SongTags& tags = *entry.tags;
    for (const auto* text :
         {&tags.title, &tags.artist, &tags.album, &tags.albumArtist, &tags.composer, &tags.genre})
        writer.text(*text);
    writer.number(tags.trackNumber);
    writer.number(tags.discNumber);
    writer.number(std::bit_cast<std::uint64_t>(tags.duration));
    writer.number(tags.hasCover);
}

LibraryEntry readEntry(Reader& reader) {
    LibraryEntry entry;
    entry.file.path = reader.text();
    entry.file.modified = static_cast<std::int64_t>(reader.number());
    entry.file.size = reader.number();
    if (reader.number() == 0)
        return entry;
    SongTags& tags = entry.tags.emplace();
    for (auto* text :
         {&tags.title, &tags.artist, &tags.album, &tags.albumArtist, &tags.composer, &tags.genre})
        *text = reader.text();
    tags.trackNumber = static_cast<unsigned>(reader.number());
    tags.discNumber = static_cast<unsigned>(reader.number());
    tags.duration = std::bit_cast<double>(reader.number());
    tags.hasCover = reader.number() != 0;
    return entry;
}

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

std::vector<std::uint8_t> LibraryIndex::encode(const std::vector<LibraryEntry>& entries) {
    Writer writer;
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
    Reader reader(content);
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

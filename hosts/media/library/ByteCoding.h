// Numbers and texts as bytes, and back: the library's index and what the tag reader's process answers.
//
// Numbers are little-endian, texts begin with their length.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace playback {

class ByteWriter {
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

/// Reads what a ByteWriter wrote; once the bytes do not suffice, it has failed and answers zeros.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

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

} // namespace playback

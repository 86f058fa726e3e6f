#include "platform/foundation/BinaryPropertyListCheck.h"

#include <optional>
#include <vector>

namespace foundation {

namespace {

constexpr std::size_t headerBytes = 8;
constexpr std::size_t trailerBytes = 32;
constexpr std::size_t offsetSizeInTrailer = 6;
constexpr std::size_t referenceSizeInTrailer = 7;
constexpr std::size_t countInTrailer = 8;
constexpr std::size_t rootInTrailer = 16;
constexpr std::size_t tableInTrailer = 24;
constexpr std::size_t widestNumber = 8;

/// The upper half of an object's first byte.
enum class Kind : std::uint8_t {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    Text = 0x5,
    WideText = 0x6,
    Identifier = 0x8,
    Array = 0xA,
    Set = 0xC,
    Dictionary = 0xD,
};

class Check {
public:
    Check(std::span<const std::uint8_t> bytes, const PropertyListLimits& limits)
        : bytes_(bytes), limits_(limits) {}

    bool run() {
        if (!readTrailer())
            return false;
        if (!visit(root_))
            return false;
        // The containers on the way down to the present object, each with the references that it still has.
        while (!open_.empty()) {
            Container& container = open_.back();
            if (container.left == 0) {
                open_.pop_back();
                continue;
            }
            --container.left;
            const std::uint64_t reference = number(container.at, referenceSize_);
            container.at += referenceSize_;
            if (!visit(reference))
                return false;
        }
        return true;
    }

private:
    struct Container {
        std::size_t at = 0;
        std::uint64_t left = 0;
    };

    bool readTrailer() {
        if (bytes_.size() < headerBytes + trailerBytes)
            return false;
        const std::size_t trailer = bytes_.size() - trailerBytes;
        offsetSize_ = bytes_[trailer + offsetSizeInTrailer];
        referenceSize_ = bytes_[trailer + referenceSizeInTrailer];
        count_ = number(trailer + countInTrailer, widestNumber);
        root_ = number(trailer + rootInTrailer, widestNumber);
        const std::uint64_t table = number(trailer + tableInTrailer, widestNumber);
        if (offsetSize_ < 1 || offsetSize_ > widestNumber || referenceSize_ < 1 ||
            referenceSize_ > widestNumber)
            return false;
        if (table < headerBytes || table >= trailer)
            return false;
        table_ = static_cast<std::size_t>(table);
        return count_ > 0 && count_ <= (trailer - table_) / offsetSize_;
    }

    /// A big-endian number; the caller knows that it lies inside the file.
    std::uint64_t number(std::size_t at, std::size_t size) const {
        std::uint64_t value = 0;
        for (std::size_t index = 0; index < size; ++index)
            value = value << 8 | bytes_[at + index];
        return value;
    }

    /// Looks at one object where the tree names it, and opens it when it names others.
    bool visit(std::uint64_t reference) {
        if (reference >= count_ || ++nodes_ > limits_.maximumNodes)
            return false;
        const std::uint64_t offset =
            number(table_ + static_cast<std::size_t>(reference) * offsetSize_, offsetSize_);
        if (offset < headerBytes || offset >= table_)
            return false;
        auto at = static_cast<std::size_t>(offset);
        const std::uint8_t marker = bytes_[at++];
        const Kind kind{static_cast<std::uint8_t>(marker >> 4)};
        const std::uint8_t low = marker & 0x0F;
        switch (kind) {
        case Kind::Simple:
            return true;
        case Kind::Integer:
            return low <= 4 && fits(at, std::uint64_t{1} << low, 1);
        case Kind::Real:
            return (low == 2 || low == 3) && fits(at, std::uint64_t{1} << low, 1);
        case Kind::Date:
            return low == 3 && fits(at, 8, 1);
        case Kind::Identifier:
            return low < widestNumber && fits(at, low + 1u, 1);
        case Kind::Data:
        case Kind::Text:
        case Kind::WideText:
        case Kind::Array:
        case Kind::Set:
        case Kind::Dictionary:
            break;
        default:
            return false;
        }
        const auto length = takeLength(at, low);
        return length && visitCounted(kind, at, *length);
    }

    bool visitCounted(Kind kind, std::size_t at, std::uint64_t length) {
        switch (kind) {
        case Kind::Data:
            return fits(at, length, 1) && addPayload(length);
        case Kind::Text:
            return fits(at, length, 1) && addPayload(length) && !holdsZero(at, length, 1);
        case Kind::WideText:
            return fits(at, length, 2) && addPayload(length * 2) && !holdsZero(at, length, 2);
        case Kind::Dictionary:
            return fits(at, length, 2 * referenceSize_) && open(at, length * 2);
        default:
            return fits(at, length, referenceSize_) && open(at, length);
        }
    }

    /// The length of a text, of data or of a container: in the marker, or in an integer that follows it.
    std::optional<std::uint64_t> takeLength(std::size_t& at, std::uint8_t low) const {
        if (low != 0x0F)
            return low;
        if (!fits(at, 1, 1))
            return std::nullopt;
        const std::uint8_t marker = bytes_[at++];
        const std::size_t size = std::size_t{1} << (marker & 0x0F);
        if (Kind{static_cast<std::uint8_t>(marker >> 4)} != Kind::Integer || size > widestNumber ||
            !fits(at, size, 1))
            return std::nullopt;
        const std::uint64_t length = number(at, size);
        at += size;
        return length;
    }

    /// Whether `count` items of `size` bytes lie between `at` and the table of offsets, where the objects
    /// end.
    bool fits(std::size_t at, std::uint64_t count, std::size_t size) const {
        return at <= table_ && count <= (table_ - at) / size;
    }

    /// Texts with a NUL among their characters: the reader takes their ends for mistakes of its own and
    /// aborts.
    bool holdsZero(std::size_t at, std::uint64_t count, std::size_t size) const {
        for (std::uint64_t index = 0; index < count; ++index, at += size)
            if (number(at, size) == 0)
                return true;
        return false;
    }

    bool addPayload(std::uint64_t length) {
        payload_ += length;
        return payload_ <= limits_.maximumBytes;
    }

    bool open(std::size_t at, std::uint64_t references) {
        if (open_.size() >= limits_.maximumDepth)
            return false;
        open_.push_back({at, references});
        return true;
    }

    std::span<const std::uint8_t> bytes_;
    const PropertyListLimits& limits_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::size_t table_ = 0;
    std::uint64_t count_ = 0;
    std::uint64_t root_ = 0;
    std::uint64_t nodes_ = 0;
    std::uint64_t payload_ = 0;
    std::vector<Container> open_;
};

} // namespace

bool isSoundBinaryPropertyList(std::span<const std::uint8_t> bytes, const PropertyListLimits& limits) {
    return Check(bytes, limits).run();
}

} // namespace foundation

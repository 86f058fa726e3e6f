#include "platform/foundation/JsonCoding.h"

#include <algorithm>
#include <limits>

#include <nlohmann/json.hpp>

namespace foundation {

namespace {

/// Builds the value as the parser comes by, and stops it at the limits.
class Builder final : public nlohmann::json_sax<nlohmann::json> {
public:
    explicit Builder(const JsonLimits& limits) : limits_(limits) {}

    PropertyList take() { return std::move(root_); }

    bool null() override { return add({}); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(number_integer_t value) override { return add(std::int64_t{value}); }
    bool number_unsigned(number_unsigned_t value) override {
        if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
            return add(static_cast<double>(value));
        return add(static_cast<std::int64_t>(value));
    }
    bool number_float(number_float_t value, const string_t&) override { return add(value); }
    bool string(string_t& value) override { return add(std::move(value)); }
    bool binary(binary_t&) override { return false; }

    bool start_object(std::size_t) override { return open(PropertyList::Dictionary()); }
    bool key(string_t& key) override {
        open_.back().key = std::move(key);
        return true;
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(PropertyList::Array()); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override {
        return false;
    }

private:
    /// A container whose end has not come.
    struct Open {
        std::variant<PropertyList::Dictionary, PropertyList::Array> content;
        std::string key; // of the entry that comes next
    };

    bool count() { return ++values_ <= limits_.maximumValues; }

    bool add(PropertyList value) { return count() && place(std::move(value)); }

    bool open(std::variant<PropertyList::Dictionary, PropertyList::Array> content) {
        if (!count() || open_.size() >= limits_.maximumDepth)
            return false;
        open_.push_back({std::move(content), {}});
        return true;
    }

    bool close() {
        auto content = std::move(open_.back().content);
        open_.pop_back();
        return std::visit([this](auto& values) { return place(std::move(values)); }, content);
    }

    bool place(PropertyList value) {
        if (open_.empty())
            root_ = std::move(value);
        else if (auto* entries = std::get_if<PropertyList::Dictionary>(&open_.back().content))
            entries->insert_or_assign(std::move(open_.back().key), std::move(value));
        else
            std::get<PropertyList::Array>(open_.back().content).push_back(std::move(value));
        return true;
    }

    const JsonLimits& limits_;
    std::size_t values_ = 0;
    std::vector<Open> open_;
    PropertyList root_;
};

} // namespace

std::optional<PropertyList> decodeJson(std::span<const std::uint8_t> bytes, const JsonLimits& limits) {
    // The parser takes a zero for the end, whatever comes behind it.
    if (bytes.size() > limits.maximumBytes || std::find(bytes.begin(), bytes.end(), 0) != bytes.end())
        return std::nullopt;
    Builder builder(limits);
    if (!nlohmann::json::sax_parse(bytes.begin(), bytes.end(), &builder))
        return std::nullopt;
    return builder.take();
}

} // namespace foundation

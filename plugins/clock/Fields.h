// What is kept in storage: lines of a key, a space and a value. Reading bears any bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace clockplugin {

class Fields {
public:
    Fields() = default;
    /// `text` as of text().
    explicit Fields(std::string text) : text_(std::move(text)) {}

    void add(std::string_view key, std::string_view value);
    void add(std::string_view key, std::int64_t value) { add(key, std::to_string(value)); }
    const std::string& text() const { return text_; }

    /// Of the first line with the key; empty when there is none.
    std::string_view value(std::string_view key) const;
    /// Nothing when there is none, it is no whole number, or lies outside of the limits.
    std::optional<std::int64_t> integer(std::string_view key, std::int64_t least,
                                        std::int64_t greatest) const;

private:
    std::string text_;
};

} // namespace clockplugin

// A property-list value: what preferences, bundles' information and notifications are made of.
//
// Values are copied like numbers. The conversions are those of the platform's number and string objects: they
// never fail, a value of a wrong type answers NO, 0 or none. Any thread.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace foundation {

class PropertyList {
public:
    using Data = std::vector<std::uint8_t>;
    using Array = std::vector<PropertyList>;
    using Dictionary = std::map<std::string, PropertyList, std::less<>>;
    /// Seconds since 2001-01-01 00:00 UTC.
    struct Date {
        double seconds = 0;
        friend bool operator==(const Date&, const Date&) = default;
    };

    PropertyList() = default; // the absent value: "nil"
    PropertyList(bool value) : value_(value) {}
    PropertyList(int value) : value_(std::int64_t{value}) {}
    PropertyList(std::int64_t value) : value_(value) {}
    PropertyList(double value) : value_(value) {}
    PropertyList(float value) : value_(static_cast<double>(value)) {}
    PropertyList(const char* value) : value_(std::string(value)) {}
    PropertyList(std::string value) : value_(std::move(value)) {}
    PropertyList(std::string_view value) : value_(std::string(value)) {}
    PropertyList(Data value) : value_(std::move(value)) {}
    PropertyList(Date value) : value_(value) {}
    PropertyList(Array value);
    PropertyList(Dictionary value);

    bool isNil() const { return std::holds_alternative<std::monostate>(value_); }
    bool isBool() const { return std::holds_alternative<bool>(value_); }
    bool isInteger() const { return std::holds_alternative<std::int64_t>(value_); }
    bool isReal() const { return std::holds_alternative<double>(value_); }
    bool isNumber() const { return isBool() || isInteger() || isReal(); }
    bool isString() const { return std::holds_alternative<std::string>(value_); }
    bool isData() const { return std::holds_alternative<Data>(value_); }
    bool isDate() const { return std::holds_alternative<Date>(value_); }
    bool isArray() const { return std::holds_alternative<Array>(value_); }
    bool isDictionary() const { return std::holds_alternative<Dictionary>(value_); }

    /// A number other than 0; a string that, after white space, a sign and zeros, begins with Y, y, T, t or a
    /// digit from 1 to 9; else NO.
    bool boolValue() const;
    /// A number rounded to single precision; a string's leading number, 0 when it begins with none.
    float floatValue() const;
    double doubleValue() const;
    /// Truncated towards zero and clamped to the type's range; NaN answers 0.
    std::int64_t integerValue() const;

    /// The string, array or dictionary itself, or null for a value of any other type.
    const std::string* string() const { return std::get_if<std::string>(&value_); }
    const Data* data() const { return std::get_if<Data>(&value_); }
    const Date* date() const { return std::get_if<Date>(&value_); }
    const Array* array() const { return std::get_if<Array>(&value_); }
    const Dictionary* dictionary() const { return std::get_if<Dictionary>(&value_); }
    Dictionary* dictionary() { return std::get_if<Dictionary>(&value_); }

    /// The entry under `key` of a dictionary; nil when there is none or this is no dictionary.
    const PropertyList& operator[](std::string_view key) const;

    /// True for a string equal to `text`, to the letter; a number never equals a keyword.
    bool equals(std::string_view text) const;

    friend bool operator==(const PropertyList&, const PropertyList&) = default;

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, Data, Date, Array, Dictionary>
        value_;
};

} // namespace foundation

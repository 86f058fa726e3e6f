// Writes a property-list value as XML, always the same text for the same value: a dictionary's entries in the
// order of their keys, numbers in no one's locale.
//
// Any thread, one writer for one text.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <string>
#include <string_view>

namespace foundation {

class PropertyListWriter {
public:
    /// The whole document. An entry without a value is left out, as the format has no word for it.
    static std::string document(const PropertyList& value);

private:
    void add(const PropertyList& value, std::size_t depth);
    void addLine(std::size_t depth, std::string_view text);
    void addElement(std::size_t depth, std::string_view name, std::string_view text);
    void addText(std::size_t depth, std::string_view name, std::string_view text);
    void addNumber(const PropertyList& value, std::size_t depth);
    void addReal(double value, std::size_t depth);
    void addData(const PropertyList::Data& data, std::size_t depth);
    void addDate(PropertyList::Date date, std::size_t depth);
    void addArray(const PropertyList::Array& array, std::size_t depth);
    void addDictionary(const PropertyList::Dictionary& dictionary, std::size_t depth);

    std::string out_;
};

} // namespace foundation

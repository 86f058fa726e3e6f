// A selector: the name of a message, colons included ("nowPlayingController:elapsedTimeDidChange:").
//
// Names are interned once per process, so comparing and hashing a selector costs one pointer.
// Selectors may be made on any thread.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace runtime {

class Selector {
public:
    Selector(std::string_view name);
    Selector(const char* name) : Selector(std::string_view(name)) {}
    Selector(const std::string& name) : Selector(std::string_view(name)) {}

    const std::string& name() const { return *name_; }
    /// How many arguments a message of this name carries: one for each colon.
    std::size_t argumentCount() const;

    friend bool operator==(Selector a, Selector b) { return a.name_ == b.name_; }

private:
    friend struct std::hash<Selector>;
    const std::string* name_;
};

} // namespace runtime

template <>
struct std::hash<runtime::Selector> {
    std::size_t operator()(runtime::Selector selector) const noexcept {
        return std::hash<const void*>{}(selector.name_);
    }
};

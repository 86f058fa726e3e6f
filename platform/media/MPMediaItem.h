// A song: its properties by name.
//
// An empty item stands for a song outside the library.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/runtime/Class.h"

#include <map>
#include <string>

namespace media {

inline constexpr const char* MPMediaItemPropertyTitle = "title";
inline constexpr const char* MPMediaItemPropertyArtist = "artist";

class MPMediaItem : public runtime::Object {
    RUNTIME_CLASS()
public:
    MPMediaItem() = default;
    explicit MPMediaItem(std::map<std::string, foundation::PropertyList> properties)
        : properties_(std::move(properties)) {}

    /// Nil for a property that the item does not have.
    foundation::PropertyList valueForProperty(const std::string& name) const;

private:
    std::map<std::string, foundation::PropertyList> properties_;
};

} // namespace media

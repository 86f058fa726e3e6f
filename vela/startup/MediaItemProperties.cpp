#include "vela/startup/MediaItemProperties.h"

using runtime::Object;

namespace vela::mediaitem {

namespace {

template <class T>
T associated(const Object& item, const char* getter) {
    const auto* value = std::any_cast<T>(&item.associatedObject(getter));
    return value ? *value : T();
}

template <class T>
void associate(Object& item, const char* getter, T value) {
    item.setAssociatedObject(getter, value ? std::any(std::move(value)) : std::any());
}

} // namespace

std::optional<std::string> songTitle(Object& self) {
    return associated<std::optional<std::string>>(self, "songTitle");
}
void setSongTitle(Object& self, std::optional<std::string> title) {
    associate(self, "songTitle", std::move(title));
}

std::optional<std::string> songArtist(Object& self) {
    return associated<std::optional<std::string>>(self, "songArtist");
}
void setSongArtist(Object& self, std::optional<std::string> artist) {
    associate(self, "songArtist", std::move(artist));
}

std::shared_ptr<media::MPMediaItemArtwork> songArtwork(Object& self) {
    return associated<std::shared_ptr<media::MPMediaItemArtwork>>(self, "songArtwork");
}
void setSongArtwork(Object& self, std::shared_ptr<media::MPMediaItemArtwork> artwork) {
    associate(self, "songArtwork", std::move(artwork));
}

} // namespace vela::mediaitem

#include "platform/media/MPMediaItem.h"

#include "platform/media/MediaPort.h"

namespace media {

runtime::Class& MPMediaItem::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMediaItem>("MPMediaItem", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMediaItem)

MPMediaItem::MPMediaItem(const std::map<std::string, foundation::PropertyList>& properties, Cover cover)
    : cover_(cover) {
    properties_.reserve(properties.size());
    for (const auto& [name, value] : properties)
        properties_.push_back({name, value});
    if (const auto* identifier = storedProperty(MPMediaItemPropertyPersistentID))
        persistentID_ = identifier->integerValue();
}

const foundation::PropertyList* MPMediaItem::storedProperty(std::string_view name) const {
    for (const Property& property : properties_)
        if (property.name.name() == name)
            return &property.value;
    return nullptr;
}

foundation::PropertyList MPMediaItem::valueForProperty(std::string_view name) const {
    if (const auto* stored = storedProperty(name))
        return *stored;
    MediaPort* port = MediaPort::current();
    if (name != MPMediaItemPropertyLyrics || !port || persistentID() == 0)
        return {};
    const auto lyrics = port->lyrics(persistentID());
    return lyrics ? foundation::PropertyList(*lyrics) : foundation::PropertyList();
}

std::string MPMediaItem::artist() const {
    const auto* artist = storedProperty(MPMediaItemPropertyArtist);
    return artist && artist->string() ? *artist->string() : std::string();
}

std::shared_ptr<MPMediaItemArtwork> MPMediaItem::artwork() const {
    return cover_ == Cover::InLibrary ? std::make_shared<MPMediaItemArtwork>(persistentID()) : nullptr;
}

} // namespace media

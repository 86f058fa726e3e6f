// The properties that the product adds to media items: what is known of a song outside the media library.
#pragma once

#include "platform/media/MPMediaItemArtwork.h"
#include "platform/runtime/Object.h"

#include <memory>
#include <optional>
#include <string>

namespace vela::mediaitem {

// Nothing for an item that never had one set.
std::optional<std::string> songTitle(runtime::Object& self);
void setSongTitle(runtime::Object& self, std::optional<std::string> title);
std::optional<std::string> songArtist(runtime::Object& self);
void setSongArtist(runtime::Object& self, std::optional<std::string> artist);
std::shared_ptr<media::MPMediaItemArtwork> songArtwork(runtime::Object& self);
void setSongArtwork(runtime::Object& self, std::shared_ptr<media::MPMediaItemArtwork> artwork);

} // namespace vela::mediaitem

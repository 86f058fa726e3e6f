// The picture that stands for a song among those that lie in its file.
#pragma once

#include <taglib/tfile.h>

namespace playback {

/// The front cover, or else the first picture; empty when the file holds none.
TagLib::ByteVector embeddedCover(TagLib::File& file);

} // namespace playback

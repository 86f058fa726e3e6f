// Songs of the project's own for a phone whose owner has none: they come into its library once that turns out
// to be empty.
#pragma once

#include "hosts/media/MusicLibrary.h"

#include <memory>

namespace phone {

class DemonstrationMusic {
public:
    /// `library` has been given its directories, which are still being read; `songs` is the directory with
    /// what it gets if they hold no music.
    DemonstrationMusic(std::shared_ptr<playback::MusicLibrary> library, std::filesystem::path songs);

private:
    void libraryChanged();

    std::shared_ptr<playback::MusicLibrary> library_;
    std::filesystem::path songs_;
    foundation::Handle observer_; // until the library has been read
};

} // namespace phone

#include "hosts/phone/program/DemonstrationMusic.h"

namespace phone {

DemonstrationMusic::DemonstrationMusic(std::shared_ptr<playback::MusicLibrary> library,
                                       std::filesystem::path songs)
    : library_(std::move(library)),
      songs_(std::move(songs)),
      observer_(library_->addObserver([this] { libraryChanged(); })) {}

void DemonstrationMusic::libraryChanged() {
    if (library_->isScanning())
        return;
    observer_.reset();
    if (library_->songs()->empty())
        library_->addDirectory(songs_);
}

} // namespace phone

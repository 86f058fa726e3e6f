// The artwork store of VelaSettingsManager: a folder of PNG files.
//
// A title may hold anything, also what would be a path into another folder: no such name is a file's.
#include "platform/foundation/FileManager.h"
#include "platform/foundation/TextReplacement.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/stores/Paths.h"
#include "vela/stores/SongKey.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::FileManager;

namespace vela {

namespace {

constexpr const char* extension = ".png";
constexpr const char* notListed = "default_artwork";

double screenScale() {
    return toolkit::UIScreen::mainScreen().scale();
}

std::string suffixOfScale(double scale) {
    return scale <= 1 ? extension : "@" + std::to_string(static_cast<int>(scale)) + "x" + extension;
}

std::string pathOf(const std::string& fileName) {
    return std::string(paths::artworks) + "/" + fileName;
}

/// Whether files can have a song's key for their name.
bool isFileName(const std::string& key) {
    return key.find('/') == std::string::npos;
}

std::vector<std::string> listArtworks() {
    return FileManager::shared().contentsOfDirectory(paths::artworks).value_or(std::vector<std::string>());
}

std::string entryName(std::string fileName) {
    for (const char* part : {extension, "@2x", "@3x"})
        fileName = foundation::replacingOccurrences(fileName, part, "");
    return fileName;
}

} // namespace

void VelaSettingsManager::addArtWork(const std::shared_ptr<const toolkit::Image>& image,
                                     const std::string& title, const std::string& artist) {
    const std::string key = songKey(title, artist);
    if (!image || !isFileName(key))
        return;
    const auto bytes = toolkit::encodePng(*image);
    if (!bytes.empty())
        FileManager::shared().writeAtomically(pathOf(key + suffixOfScale(screenScale())), bytes);
}

std::shared_ptr<const toolkit::Image>
VelaSettingsManager::getImageForSongName(const std::string& title, const std::string& artist) const {
    const std::string key = songKey(title, artist);
    return isFileName(key) ? toolkit::loadImageNamed(pathOf(key + extension), screenScale()) : nullptr;
}

std::vector<std::string> VelaSettingsManager::getArtworks() const {
    std::vector<std::string> names;
    for (const std::string& file : listArtworks()) {
        if (!file.ends_with(extension))
            continue;
        if (std::string name = entryName(file); name != notListed)
            names.push_back(std::move(name));
    }
    return names;
}

void VelaSettingsManager::removeArtwork(const std::string& name) {
    // No name contains an empty text.
    if (name.empty())
        return;
    for (const std::string& file : listArtworks())
        if (file.find(name) != std::string::npos) {
            FileManager::shared().removeFile(pathOf(file));
            return;
        }
}

} // namespace vela

#include "platform/foundation/FileStamp.h"

#include "platform/foundation/FileManager.h"

#include <sys/stat.h>

namespace foundation {

void FileStamp::findFile() {
    const auto& root = FileManager::shared().deviceRoot().native();
    if (!realPath_.empty() && root == root_)
        return;
    root_ = root;
    const auto path = FileManager::shared().realPath(devicePath_);
    realPath_ = path ? path->native() : std::string();
}

FileStamp::Look FileStamp::look() const {
    struct stat status {};
    if (realPath_.empty() || lstat(realPath_.c_str(), &status) != 0)
        return {};
    // The time of the last change of the node, which nobody can set back.
    return {status.st_dev, status.st_ino, status.st_size, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

bool FileStamp::mayHaveChanged() {
    findFile();
    if (const Look now = look(); now != last_) {
        last_ = now;
        callsToTell_ = 2;
    }
    if (callsToTell_ == 0)
        return false;
    --callsToTell_;
    return true;
}

} // namespace foundation

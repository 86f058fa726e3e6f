#include "platform/foundation/DecodedFiles.h"

#include "platform/foundation/PropertyListCoding.h"

namespace foundation {

namespace {

DecodedFiles::Dictionary decodeDictionary(const std::vector<std::uint8_t>& bytes) {
    auto value = decodePropertyList(bytes);
    if (!value || !value->dictionary())
        return nullptr;
    return std::make_shared<const PropertyList::Dictionary>(std::move(*value->dictionary()));
}

} // namespace

DecodedFiles::Dictionary DecodedFiles::decode(const std::string& path, std::vector<std::uint8_t> bytes) {
    if (bytes.size() > largestFile)
        return decodeDictionary(bytes);
    std::lock_guard lock(mutex_);
    if (auto found = entries_.find(path); found != entries_.end() && found->second.bytes == bytes)
        return found->second.dictionary;
    Dictionary dictionary = decodeDictionary(bytes);
    if (entries_.size() >= mostFiles && !entries_.contains(path))
        entries_.clear();
    entries_[path] = {std::move(bytes), dictionary};
    return dictionary;
}

} // namespace foundation

#include "platform/foundation/ProcessInfo.h"

#include <algorithm>
#include <string_view>

namespace foundation {

namespace {

/// Takes the first field of `version` away and answers its digits without leading zeros; none for a field
/// that is missing or no number, which counts as 0.
std::string_view takeField(std::string_view& version) {
    const std::string_view field = version.substr(0, version.find('.'));
    version.remove_prefix(std::min(version.size(), field.size() + 1));
    const auto firstDigit = std::min(field.find_first_not_of('0'), field.size());
    const auto end = std::min(field.find_first_not_of("0123456789", firstDigit), field.size());
    return field.substr(firstDigit, end - firstDigit);
}

} // namespace

ProcessInfo& ProcessInfo::shared() {
    // Never torn down: extensions ask until the process ends.
    static auto& info = *new ProcessInfo;
    return info;
}

int compareVersionsNumerically(const std::string& a, const std::string& b) {
    std::string_view restOfA = a;
    std::string_view restOfB = b;
    while (!restOfA.empty() || !restOfB.empty()) {
        // Digits are compared as text, so that a field may be of any length.
        const std::string_view fieldA = takeField(restOfA);
        const std::string_view fieldB = takeField(restOfB);
        if (fieldA.size() != fieldB.size())
            return fieldA.size() < fieldB.size() ? -1 : 1;
        if (const int order = fieldA.compare(fieldB))
            return order < 0 ? -1 : 1;
    }
    return 0;
}

} // namespace foundation

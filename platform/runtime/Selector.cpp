#include "platform/runtime/Selector.h"

#include <algorithm>
#include <mutex>
#include <unordered_set>

namespace runtime {

namespace {

const std::string* intern(std::string_view name) {
    // Never torn down: selectors live in objects with static storage everywhere.
    static auto& mutex = *new std::mutex;
    static auto& names = *new std::unordered_set<std::string>;
    std::lock_guard lock(mutex);
    return &*names.emplace(name).first;
}

} // namespace

Selector::Selector(std::string_view name) : name_(intern(name)) {}

std::size_t Selector::argumentCount() const {
    return static_cast<std::size_t>(std::count(name_->begin(), name_->end(), ':'));
}

} // namespace runtime

// Hears what happens to a page's rows, in order to show them. Implemented by hosts.
#pragma once

#include <cstddef>
#include <memory>

namespace preferences {

class PSSpecifier;

class PSListObserver {
public:
    virtual ~PSListObserver() = default;
    /// Rows and cells are to be asked for anew, all of them.
    virtual void specifiersReloaded() = 0;
    /// One row; `index` is its place among specifiers().
    virtual void specifierAdded(std::size_t index, bool animated) = 0;
    virtual void specifierRemoved(std::size_t index, bool animated) = 0;
    /// The row's value, or which choice is checked, is to be asked for anew.
    virtual void specifierChanged(const std::shared_ptr<PSSpecifier>& specifier) = 0;
};

} // namespace preferences

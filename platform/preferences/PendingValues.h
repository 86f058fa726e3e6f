// Holds back a stream of new values so that each row stores at most one a frame, and its last one always.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/preferences/PSSpecifier.h"

#include <map>
#include <memory>
#include <optional>

namespace preferences {

class PendingValues {
public:
    /// Stores `value` through the specifier's setter: now when the row has been quiet for a frame, otherwise
    /// at the end of the frame, unless a later value has come by then.
    void set(const foundation::PropertyList& value, const std::shared_ptr<PSSpecifier>& specifier);
    /// Stores what is held back.
    void flush();

private:
    struct Row {
        std::optional<foundation::PropertyList> held;
        foundation::Handle frame; // while it lives, values are held back
    };
    void endFrame(std::shared_ptr<PSSpecifier> specifier);
    void startFrame(const std::shared_ptr<PSSpecifier>& specifier);

    std::map<std::shared_ptr<PSSpecifier>, Row> rows_;
};

} // namespace preferences

#include "platform/preferences/PendingValues.h"

#include "platform/foundation/RunLoop.h"

namespace preferences {

void PendingValues::set(const foundation::PropertyList& value,
                        const std::shared_ptr<PSSpecifier>& specifier) {
    if (const auto found = rows_.find(specifier); found != rows_.end()) {
        found->second.held = value;
        return;
    }
    startFrame(specifier);
    specifier->performSetterWithValue(value);
}

void PendingValues::startFrame(const std::shared_ptr<PSSpecifier>& specifier) {
    rows_[specifier].frame = foundation::RunLoop::main().scheduleTimer(
        foundation::RunLoop::frameInterval, false, [this, specifier] { endFrame(specifier); });
}

void PendingValues::endFrame(std::shared_ptr<PSSpecifier> specifier) {
    const auto row = rows_.extract(specifier);
    if (row.empty() || !row.mapped().held)
        return;
    startFrame(specifier);
    specifier->performSetterWithValue(*row.mapped().held);
}

void PendingValues::flush() {
    const auto rows = std::exchange(rows_, {});
    for (const auto& [specifier, row] : rows)
        if (row.held)
            specifier->performSetterWithValue(*row.held);
}

} // namespace preferences

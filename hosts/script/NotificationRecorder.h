// Keeps every notification posted on the default centre from its making on. Main thread only.
#pragma once

#include "platform/foundation/NotificationCenter.h"

#include <vector>

namespace script {

class NotificationRecorder {
public:
    NotificationRecorder();

    const std::vector<foundation::Notification>& notifications() const { return notifications_; }

private:
    std::vector<foundation::Notification> notifications_;
    foundation::Handle observer_;
};

} // namespace script

#include "hosts/script/NotificationRecorder.h"

namespace script {

NotificationRecorder::NotificationRecorder()
    : observer_(foundation::NotificationCenter::defaultCenter().addObserverForAll(
          [this](const foundation::Notification& notification) { notifications_.push_back(notification); })) {
}

} // namespace script

#include "platform/foundation/NotificationCenter.h"

#include <vector>

namespace foundation {

NotificationCenter& NotificationCenter::defaultCenter() {
    // Never torn down: observers with static storage let go of it at the very end.
    static auto& center = *new NotificationCenter;
    return center;
}

Handle NotificationCenter::addObserver(const std::string& name, Observer observer) {
    return add({name, false, false, std::move(observer)});
}

Handle NotificationCenter::addObserverForAll(Observer observer) {
    return add({{}, true, false, std::move(observer)});
}

Handle NotificationCenter::add(Registration registration) {
    auto added = std::make_shared<Registration>(std::move(registration));
    registrations_->push_back(added);
    return Handle([registrations = std::weak_ptr(registrations_), weak = std::weak_ptr(added)] {
        auto registered = weak.lock();
        if (!registered)
            return;
        registered->removed = true;
        if (auto list = registrations.lock())
            list->remove(registered);
    });
}

void NotificationCenter::post(const std::string& name, PropertyList object) {
    // Observers may come and go meanwhile: who came too late does not hear it, who went does not either.
    const std::vector<std::shared_ptr<Registration>> registrations(registrations_->begin(),
                                                                   registrations_->end());
    const Notification notification{name, std::move(object)};
    for (const auto& registration : registrations)
        if (!registration->removed && (registration->all || registration->name == notification.name))
            registration->observer(notification);
}

} // namespace foundation

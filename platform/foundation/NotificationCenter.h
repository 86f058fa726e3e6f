// Named notifications inside the process, delivered synchronously in the order of registration.
//
// Observers may come and go while a notification is being delivered. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/foundation/PropertyList.h"

#include <functional>
#include <list>
#include <memory>
#include <string>

namespace foundation {

struct Notification {
    std::string name;
    PropertyList object;
};

class NotificationCenter {
public:
    using Observer = std::function<void(const Notification&)>;

    /// The process's default centre.
    static NotificationCenter& defaultCenter();

    Handle addObserver(const std::string& name, Observer observer);
    /// Sees every notification of whatever name.
    Handle addObserverForAll(Observer observer);
    void post(const std::string& name, PropertyList object = {});

private:
    struct Registration {
        std::string name;
        bool all = false;
        bool removed = false;
        Observer observer;
    };
    Handle add(Registration registration);

    std::shared_ptr<std::list<std::shared_ptr<Registration>>> registrations_ =
        std::make_shared<std::list<std::shared_ptr<Registration>>>();
};

} // namespace foundation

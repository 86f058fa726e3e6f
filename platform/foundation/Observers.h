// Those who want to hear of something's changes, called in the order in which they registered.
//
// An observer may register others and let go of any, also of itself, while it is called; the list itself may
// go meanwhile. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"

#include <functional>
#include <memory>
#include <vector>

namespace foundation {

template <class... Arguments>
class Observers {
public:
    using Observer = std::function<void(Arguments...)>;

    Handle add(Observer observer) {
        auto entry = std::make_shared<Observer>(std::move(observer));
        list_->push_back(entry);
        return Handle([list = std::weak_ptr(list_), entry] {
            *entry = nullptr;
            if (const auto standing = list.lock())
                std::erase(*standing, entry);
        });
    }

    void notify(Arguments... arguments) const {
        const auto present = *list_;
        for (const auto& entry : present)
            if (const Observer observer = *entry)
                observer(arguments...);
    }

private:
    using List = std::vector<std::shared_ptr<Observer>>;
    std::shared_ptr<List> list_ = std::make_shared<List>();
};

} // namespace foundation

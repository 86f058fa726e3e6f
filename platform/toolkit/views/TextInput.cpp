#include "platform/toolkit/views/TextInput.h"

#include <list>
#include <memory>

namespace toolkit {

namespace {
struct Observer {
    std::function<void(TextInput*)> tell;
};

// Never torn down: views with static storage may still resign at exit.
struct State {
    TextInput* current = nullptr;
    std::list<std::shared_ptr<Observer>> observers;
};
State& state() {
    static auto& state = *new State;
    return state;
}

void tellObservers() {
    const auto observers = state().observers;
    for (const auto& observer : observers) {
        const auto tell = observer->tell; // it may let go of its own handle
        if (tell)
            tell(state().current);
    }
}
} // namespace

TextInput::~TextInput() {
    if (!isFirstResponder())
        return;
    state().current = nullptr;
    tellObservers();
}

TextInput* TextInput::current() {
    return state().current;
}

void TextInput::becomeFirstResponder() {
    if (isFirstResponder())
        return;
    TextInput* previous = state().current;
    state().current = this;
    if (previous)
        previous->resignedFirstResponder();
    becameFirstResponder();
    tellObservers();
}

void TextInput::resignFirstResponder() {
    if (!isFirstResponder())
        return;
    state().current = nullptr;
    resignedFirstResponder();
    tellObservers();
}

foundation::Handle TextInput::addObserver(std::function<void(TextInput*)> observer) {
    auto entry = std::make_shared<Observer>(Observer{std::move(observer)});
    state().observers.push_back(entry);
    return foundation::Handle([entry] {
        // Emptied as well, for one that is let go while the others are being told.
        state().observers.remove(entry);
        entry->tell = nullptr;
    });
}

} // namespace toolkit

// An owning registration: observers, timers, links and turn hooks stay registered as long as it lives.
//
// Movable, not copyable. Letting go twice, or after the place of registration is gone, is harmless.
#pragma once

#include <functional>
#include <utility>

namespace foundation {

class [[nodiscard]] Handle {
public:
    Handle() = default;
    explicit Handle(std::function<void()> release) : release_(std::move(release)) {}
    Handle(Handle&& other) noexcept : release_(std::exchange(other.release_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            reset();
            release_ = std::exchange(other.release_, nullptr);
        }
        return *this;
    }
    ~Handle() { reset(); }

    void reset() {
        if (auto release = std::exchange(release_, nullptr))
            release();
    }
    explicit operator bool() const { return static_cast<bool>(release_); }

private:
    std::function<void()> release_;
};

} // namespace foundation

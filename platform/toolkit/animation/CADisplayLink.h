// Sends its target a message once a frame, until it is invalidated or let go of.
//
// The target is not owned; a gone one is told nothing. Whoever makes a link keeps it. Main thread only.
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/runtime/Class.h"

#include <memory>

namespace toolkit {

/// The modes that a link runs in. A run loop here has no others.
enum class RunLoopMode { Common };

class CADisplayLink : public runtime::Object {
    RUNTIME_CLASS()
public:
    /// displayLinkWithTarget:selector: An action that ends in ":" gets the link.
    static std::shared_ptr<CADisplayLink> displayLinkWithTarget(runtime::Object& target,
                                                                runtime::Selector selector);

    /// addToRunLoop:forMode: Ticks begin with the next frame.
    void addToRunLoop(foundation::RunLoop& loop, RunLoopMode forMode);
    void invalidate() { registration_.reset(); }
    /// Whether it has been added and not yet invalidated.
    bool isRunning() const { return static_cast<bool>(registration_); }
    /// Run loop time of the latest frame, seconds.
    double timestamp() const { return timestamp_; }

private:
    using Action = std::function<void(CADisplayLink&)>;
    explicit CADisplayLink(Action action) : action_(std::move(action)) {}

    Action action_;
    foundation::Handle registration_;
    double timestamp_ = 0;
};

} // namespace toolkit

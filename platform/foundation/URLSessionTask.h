// One request of a session. Copies are the same task; letting go of it does not end it.
#pragma once

#include "platform/foundation/URLRequest.h"

#include <functional>
#include <memory>

namespace foundation {

class HTTPTransfer;

class URLSessionTask {
public:
    using Completion = std::function<void(const URLAnswer& answer)>;

    /// No task at all.
    URLSessionTask() = default;
    URLSessionTask(std::shared_ptr<HTTPTransfer> transfer, Completion completion);

    /// Starts it; there must be a main loop. A second time is without effect.
    void resume();
    /// Ends it with URLErrorCode::Cancelled, if it has not ended. Any thread.
    void cancel();

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace foundation

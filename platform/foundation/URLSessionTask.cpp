#include "platform/foundation/URLSessionTask.h"

#include "platform/foundation/HTTPThread.h"
#include "platform/foundation/OutsideWork.h"
#include "platform/foundation/RunLoop.h"

#include <utility>

namespace foundation {

struct URLSessionTask::State {
    std::shared_ptr<HTTPTransfer> transfer;
    Completion completion;
};

URLSessionTask::URLSessionTask(std::shared_ptr<HTTPTransfer> transfer, Completion completion)
    : state_(std::make_shared<State>(State{std::move(transfer), std::move(completion)})) {}

void URLSessionTask::resume() {
    if (!state_ || !state_->completion)
        return;
    // The loop outlives its transfers: its end stops their thread.
    state_->transfer->setEnded([ticket = OutsideWork::shared().begin(), &loop = RunLoop::main(),
                                completion = std::exchange(state_->completion, nullptr)](URLAnswer answer) {
        auto shared = std::make_shared<const URLAnswer>(std::move(answer));
        OutsideWork::shared().end(ticket, [&loop, completion, shared] {
            loop.performInBackground([completion, shared] { completion(*shared); });
        });
    });
    HTTPThread::start(state_->transfer);
}

void URLSessionTask::cancel() {
    if (!state_)
        return;
    state_->transfer->cancel();
    HTTPThread::wake();
}

} // namespace foundation

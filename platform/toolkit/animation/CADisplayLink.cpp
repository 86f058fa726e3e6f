#include "platform/toolkit/animation/CADisplayLink.h"

#include "platform/runtime/Message.h"

namespace toolkit {

runtime::Class& CADisplayLink::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<CADisplayLink>("CADisplayLink", &runtime::Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(CADisplayLink)

std::shared_ptr<CADisplayLink> CADisplayLink::displayLinkWithTarget(runtime::Object& target,
                                                                    runtime::Selector selector) {
    const runtime::WeakPtr<runtime::Object> receiver(&target);
    Action action;
    if (selector.name().ends_with(':'))
        action = [receiver, message = runtime::Message<void(runtime::Object*)>(selector)](
                     CADisplayLink& link) { message(receiver.get(), &link); };
    else
        action = [receiver, message = runtime::Message<void()>(selector)](CADisplayLink&) {
            message(receiver.get());
        };
    return std::shared_ptr<CADisplayLink>(new CADisplayLink(std::move(action)));
}

void CADisplayLink::addToRunLoop(foundation::RunLoop& loop, RunLoopMode) {
    registration_ = loop.addDisplayLink([link = runtime::WeakPtr<CADisplayLink>(this)](double now) {
        if (!link)
            return;
        const auto kept = std::static_pointer_cast<CADisplayLink>(link->shared_from_this());
        kept->timestamp_ = now;
        kept->action_(*kept);
    });
}

} // namespace toolkit

#include "platform/homescreen/SpringBoard.h"

#include "platform/homescreen/HostPort.h"
#include "platform/runtime/Message.h"

namespace homescreen {

runtime::Class& SpringBoard::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SpringBoard>("SpringBoard", &UIApplication::staticClass())
            .method("applicationDidFinishLaunching:", &SpringBoard::hostDidFinishLaunching)
            .method("statusBarOrientation", &SpringBoard::hostStatusBarOrientation)
            .method("_frontMostAppOrientation", &SpringBoard::hostFrontMostAppOrientation)
            .method("_accessibilityTopDisplay", &SpringBoard::hostAccessibilityTopDisplay)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SpringBoard)

void SpringBoard::applicationDidFinishLaunching(runtime::Object* application) {
    static const runtime::Message<void(runtime::Object*)> message{"applicationDidFinishLaunching:"};
    message(*this, application);
}

std::int64_t SpringBoard::statusBarOrientation() {
    static const runtime::Message<std::int64_t()> message{"statusBarOrientation"};
    return message(*this);
}

std::int64_t SpringBoard::_frontMostAppOrientation() {
    static const runtime::Message<std::int64_t()> message{"_frontMostAppOrientation"};
    return message(*this);
}

std::shared_ptr<runtime::Object> SpringBoard::_accessibilityTopDisplay() {
    static const runtime::Message<std::shared_ptr<runtime::Object>()> message{"_accessibilityTopDisplay"};
    return message(*this);
}

void SpringBoard::hostDidFinishLaunching(runtime::Object*) {
    if (auto* port = HostPort::current())
        port->finishLaunching();
}

std::int64_t SpringBoard::hostStatusBarOrientation() {
    auto* port = HostPort::current();
    return port ? port->statusBarOrientation() : 1;
}

std::int64_t SpringBoard::hostFrontMostAppOrientation() {
    auto* port = HostPort::current();
    return port ? port->frontMostAppOrientation() : 1;
}

std::shared_ptr<runtime::Object> SpringBoard::hostAccessibilityTopDisplay() {
    auto* port = HostPort::current();
    return port ? port->topDisplay() : nullptr;
}

} // namespace homescreen

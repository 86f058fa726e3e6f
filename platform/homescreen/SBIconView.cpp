#include "platform/homescreen/SBIconView.h"

#include "platform/homescreen/HostPort.h"

namespace homescreen {

runtime::Class& SBIconView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBIconView>("SBIconView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBIconView)

toolkit::Size SBIconView::defaultIconImageSize() {
    auto* port = HostPort::current();
    return port ? port->defaultIconImageSize() : toolkit::Size();
}

} // namespace homescreen

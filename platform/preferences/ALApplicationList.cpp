#include "platform/preferences/ALApplicationList.h"

#include "platform/preferences/PreferencesPort.h"

namespace preferences {

runtime::Class& ALApplicationList::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<ALApplicationList>("ALApplicationList", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ALApplicationList)

ALApplicationList& ALApplicationList::sharedApplicationList() {
    static auto& list = *new ALApplicationList; // never torn down
    return list;
}

std::map<std::string, std::string> ALApplicationList::applications() const {
    auto* port = PreferencesPort::current();
    return port ? port->applications() : std::map<std::string, std::string>();
}

std::shared_ptr<const toolkit::Image>
ALApplicationList::iconOfSize(double points, const std::string& displayIdentifier) const {
    auto* port = PreferencesPort::current();
    return port ? port->applicationIcon(displayIdentifier, points) : nullptr;
}

} // namespace preferences

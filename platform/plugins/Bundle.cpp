#include "platform/plugins/Bundle.h"

#include "platform/plugins/BundleInformation.h"
#include "platform/plugins/CrashNote.h"
#include "platform/plugins/DisabledPlugins.h"
#include "platform/plugins/PluginView.h"

#include <algorithm>

#include <dlfcn.h>

namespace plugins {

namespace {

bool isIdentifierCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool isClassName(const std::string& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), isIdentifierCharacter);
}

/// Loading runs the library's initialisers. An exception of theirs would leave the loader's locks behind, so
/// it counts as a crash.
void* load(const BundleInformation& information) noexcept {
    // Declared as never throwing, which is not true of what it runs: the compiler must not rely on it.
    void* (*volatile const open)(const char*, int) = dlopen;
    return open(information.executable.c_str(), RTLD_NOW | RTLD_LOCAL);
}

/// What the library exports under the class's name; null when that is not made for this contract.
const vela::plugin::PrincipalClass* findPrincipalClass(void* library, const std::string& name) {
    const void* symbol = dlsym(library, ("velaPrincipalClass_" + name).c_str());
    const auto* found = static_cast<const vela::plugin::PrincipalClass*>(symbol);
    return found && found->abi == VELA_PLUGIN_ABI && found->name && found->create ? found : nullptr;
}

std::shared_ptr<Caller> makeCaller(const BundleInformation& information) {
    auto caller = std::make_shared<Caller>();
    caller->identifier = information.identifier;
    return caller;
}

} // namespace

Bundle::Bundle(std::unique_ptr<BundleInformation> information, void* library)
    : information_(std::move(information)), library_(library) {}

Bundle::~Bundle() = default;

std::shared_ptr<Bundle> Bundle::open(const std::string& devicePath) {
    auto information = BundleInformation::read(devicePath);
    if (!information || isDisabled(information->identifier))
        return nullptr;
    CrashNote::prepare();
    void* library = nullptr;
    PluginCall::run(makeCaller(*information), "its loading", [&] { library = load(*information); });
    if (!library)
        return nullptr;
    return std::shared_ptr<Bundle>(new Bundle(std::move(information), library));
}

const std::string& Bundle::identifier() const {
    return information_->identifier;
}

std::shared_ptr<toolkit::UIView> Bundle::makePrincipalView() {
    if (!isClassName(information_->principalClass))
        return nullptr;
    const vela::plugin::PrincipalClass* principalClass = nullptr;
    PluginCall::run(makeCaller(*information_), "its principal class",
                    [&] { principalClass = findPrincipalClass(library_, information_->principalClass); });
    return principalClass ? PluginView::make(*information_, *principalClass) : nullptr;
}

} // namespace plugins

#include "vela/settings/restrictionController.h"

#include "platform/foundation/RunLoop.h"
#include "platform/preferences/ALApplicationList.h"
#include "platform/runtime/Creation.h"
#include "platform/toolkit/rendering/ImageFile.h"

using preferences::ALApplicationList;

namespace vela {

namespace {

constexpr double iconSize = 29; // points
/// A service that has no icon of its own: what it shows is the generic one.
constexpr const char* serviceWithGenericIcon = "com.apple.WebViewService";

/// Empty when there is no picture.
std::vector<std::uint8_t> pngOf(const std::shared_ptr<const toolkit::Image>& image) {
    return image ? toolkit::encodePng(*image) : std::vector<std::uint8_t>();
}

} // namespace

runtime::Class& restrictionController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<restrictionController>("restrictionController", &preferencePage::staticClass())
            .method("loadApps", &restrictionController::loadApps)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(restrictionController)

void restrictionController::viewDidAppear(bool animated) {
    preferencePage::viewDidAppear(animated);
    setTitle("Restriction");
    if (specifiers().empty())
        loading_ = foundation::RunLoop::main().scheduleTimer(0, false, [this] { loadApps(); });
}

void restrictionController::loadApps() {
    const auto& list = ALApplicationList::sharedApplicationList();
    const auto generic = pngOf(list.iconOfSize(iconSize, serviceWithGenericIcon));
    for (const auto& [bundleIdentifier, name] : list.applications()) {
        auto icon = list.iconOfSize(iconSize, bundleIdentifier);
        const auto png = pngOf(icon);
        if (png.empty() || png != generic)
            addApplication(bundleIdentifier, std::move(icon));
    }
}

void restrictionController::addApplication(const std::string& bundleIdentifier,
                                           std::shared_ptr<const toolkit::Image> icon) {
    auto row = switchRow(bundleIdentifier);
    if (icon)
        row->setIconImage([icon = std::move(icon)] { return icon; });
    addSpecifier(std::move(row), true);
}

} // namespace vela

#include "vela/nowplaying/M13ProgressView.h"

#include <nlohmann/json.hpp>

namespace vela {

runtime::Class& M13ProgressView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<M13ProgressView>("M13ProgressView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(M13ProgressView)

M13ProgressView::M13ProgressView(toolkit::Rect frame) : UIView(frame) {}

void M13ProgressView::setProgress(double progress, bool) {
    storeProgress(progress);
}

void M13ProgressView::performAction(std::int32_t, bool) {}

void M13ProgressView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["indeterminate"] = indeterminate();
    properties["progress"] = progress();
}

} // namespace vela

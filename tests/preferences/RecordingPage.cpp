#include "tests/preferences/RecordingPage.h"

#include "platform/runtime/Creation.h"

namespace tests {

runtime::Class& RecordingPage::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<RecordingPage>("RecordingPage", &PSEditableListController::staticClass())
            .method("getValue:", &RecordingPage::getValue)
            .method("setValue:forSpecifier:", &RecordingPage::setValue)
            .method("tapped", &RecordingPage::tapped)
            .method("removed:", &RecordingPage::removed)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(RecordingPage)

} // namespace tests

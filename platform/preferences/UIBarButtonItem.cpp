#include "platform/preferences/UIBarButtonItem.h"

#include "platform/runtime/Message.h"

namespace preferences {

runtime::Class& UIBarButtonItem::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UIBarButtonItem>("UIBarButtonItem", &runtime::Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIBarButtonItem)

void UIBarButtonItem::performAction() {
    runtime::Message<void()>{action_}(target_.get());
}

} // namespace preferences

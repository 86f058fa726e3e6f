#include "platform/toolkit/windows/UIApplication.h"

#include "platform/toolkit/windows/WindowServer.h"

namespace toolkit {

namespace {

UIApplication* sharedInstance = nullptr;

} // namespace

runtime::Class& UIApplication::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UIApplication>("UIApplication", &runtime::Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIApplication)

UIApplication::UIApplication() {
    sharedInstance = this;
}

UIApplication::~UIApplication() {
    if (sharedInstance == this)
        sharedInstance = nullptr;
}

UIApplication* UIApplication::sharedApplication() {
    return sharedInstance;
}

UIWindow* UIApplication::keyWindow() const {
    return WindowServer::shared().keyWindow();
}

} // namespace toolkit

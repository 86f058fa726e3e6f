// The application object of the process.
#pragma once

#include "platform/runtime/Class.h"

#include <cstdint>

namespace toolkit {

class UIWindow;

class UIApplication : public runtime::Object {
    RUNTIME_CLASS()
public:
    UIApplication();
    ~UIApplication() override;

    /// The one application object, or null before a host has made it.
    static UIApplication* sharedApplication();

    UIWindow* keyWindow() const;
};

} // namespace toolkit

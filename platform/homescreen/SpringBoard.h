// The home screen's application object.
//
// Its methods are messages, so that an extension can replace them; called from C++ they go through the
// class's table as well. There is one, made by the host, which then lets it launch.
#pragma once

#include "platform/toolkit/windows/UIApplication.h"

#include <cstdint>
#include <memory>

namespace homescreen {

class SpringBoard : public toolkit::UIApplication {
    RUNTIME_CLASS()
public:
    /// The host's own launch, and what extensions have put around it. Once per process.
    void applicationDidFinishLaunching(runtime::Object* application);
    /// Interface orientation of the home screen's own status bar.
    std::int64_t statusBarOrientation();
    /// Interface orientation of whatever is in front.
    std::int64_t _frontMostAppOrientation();
    /// The application in front, null on the home screen.
    std::shared_ptr<runtime::Object> _accessibilityTopDisplay();

private:
    void hostDidFinishLaunching(runtime::Object* application);
    std::int64_t hostStatusBarOrientation();
    std::int64_t hostFrontMostAppOrientation();
    std::shared_ptr<runtime::Object> hostAccessibilityTopDisplay();
};

} // namespace homescreen

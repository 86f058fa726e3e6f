// A test with a virtual main loop, a portrait screen of 375 × 667 points, and the windows laid out each turn.
#pragma once

#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "tests/support/Transcript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace support {

class ToolkitTest : public testing::Test {
protected:
    ToolkitTest() {
        foundation::RunLoop::setMain(&loop);
        toolkit::UIScreen::mainScreen().setSize({375, 667});
        toolkit::UIScreen::mainScreen().setScale(2);
        toolkit::WindowServer::shared().attachToMainRunLoop();
        toolkit::WindowServer::shared().setSecureOnly(false);
    }
    ~ToolkitTest() override { foundation::RunLoop::setMain(nullptr); }

    template <class Window = toolkit::UIWindow, class... Arguments>
    std::shared_ptr<Window> shownWindow(toolkit::Rect frame, Arguments&&... arguments) {
        auto window = std::make_shared<Window>(frame, std::forward<Arguments>(arguments)...);
        window->setHidden(false);
        return window;
    }

    foundation::VirtualRunLoop loop;
    Transcript transcript;
};

} // namespace support

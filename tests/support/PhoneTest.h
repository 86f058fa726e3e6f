// A test with a whole phone, launched on a virtual clock without an extension.
#pragma once

#include "hosts/phone/Phone.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/text/Font.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <gtest/gtest.h>

#include <memory>

namespace support {

class PhoneTest : public testing::Test {
protected:
    PhoneTest() {
        foundation::RunLoop::setMain(&loop);
        static const bool fontsPinned = [] {
            toolkit::setFontDirectory(VELA_SOURCE_DIR "/resources/fonts", true);
            return true;
        }();
        EXPECT_TRUE(fontsPinned);
    }
    ~PhoneTest() override {
        phone_.reset();
        loop.advance(1); // what was under way comes to its end
        foundation::RunLoop::setMain(nullptr);
    }

    /// Launches a phone, in place of one that runs.
    phone::Phone& start(phone::PhoneConfiguration configuration = {}) {
        phone_.reset();
        phone_ = std::make_unique<phone::Phone>(std::move(configuration));
        phone_->launch();
        loop.advance(0.1);
        return *phone_;
    }
    phone::Phone& startTablet() {
        phone::PhoneConfiguration configuration;
        configuration.screenSize = {768, 1024};
        configuration.screenScale = 1;
        configuration.model = "iPad";
        return start(configuration);
    }
    phone::Phone& phone() { return *phone_; }

    void open(const std::string& bundleIdentifier) {
        ASSERT_TRUE(phone().openApplication(bundleIdentifier));
        loop.advance(1);
    }
    void tap(toolkit::Point point) {
        phone().touchDown(1, point);
        loop.advance(0.05);
        phone().touchUp(1);
        loop.advance(0.01);
    }
    /// Drags in even steps, one a frame.
    void drag(toolkit::Point from, toolkit::Point to, int steps) {
        phone().touchDown(1, from);
        for (int i = 1; i <= steps; ++i) {
            loop.advance(foundation::RunLoop::frameInterval);
            const double t = static_cast<double>(i) / steps;
            phone().touchMove(1, {from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t});
        }
        phone().touchUp(1);
    }

    /// The first view of type T, windows from the front, children before their parents' siblings; null when
    /// there is none that satisfies `accepts`.
    template <class T>
    static T* find(const std::function<bool(T&)>& accepts = [](T&) { return true; }) {
        const auto windows = toolkit::WindowServer::shared().windows();
        for (auto window = windows.rbegin(); window != windows.rend(); ++window)
            if (T* found = findBelow<T>(**window, accepts))
                return found;
        return nullptr;
    }
    /// Whether a view and everything above it is shown.
    static bool isShown(const toolkit::UIView* view) {
        for (; view; view = view->superview())
            if (view->isHidden() || view->alpha() <= 0)
                return false;
        return true;
    }
    static toolkit::Rect screenFrame(const toolkit::UIView& view) {
        return view.convertRectTo(view.bounds(), nullptr);
    }
    static toolkit::Size screenSize() { return toolkit::UIScreen::mainScreen().bounds().size(); }

    foundation::VirtualRunLoop loop;

private:
    template <class T>
    static T* findBelow(toolkit::UIView& view, const std::function<bool(T&)>& accepts) {
        if (auto* typed = dynamic_cast<T*>(&view); typed && accepts(*typed))
            return typed;
        for (const auto& subview : view.subviews())
            if (T* found = findBelow<T>(*subview, accepts))
                return found;
        return nullptr;
    }

    std::unique_ptr<phone::Phone> phone_;
};

} // namespace support

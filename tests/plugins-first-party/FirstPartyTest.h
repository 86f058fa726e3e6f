// A test with a plug-in that comes with the phone, opened from its bundle in a window of a panel's size: what
// it shows is read, and touched, by its letters.
#pragma once

#include "platform/plugins/PluginTimer.h"
#include "platform/plugins/TimeOfDay.h"
#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "platform/toolkit/views/TextInput.h"
#include "tests/plugins/PluginTest.h"
#include "tests/support/Finger.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace plugins {

class FirstPartyTest : public PluginTest {
protected:
    static constexpr toolkit::Size panel{280, 590};

    ~FirstPartyTest() override { setTimeOfDaySource(nullptr); }

    /// Opens the plug-in as a tap on its tile does, in place of one that is open. The device keeps its files.
    void open(const std::string& name, toolkit::Size size = panel) {
        closePlugin();
        if (!std::filesystem::exists(realPathOf(name)))
            std::filesystem::copy(std::string(VELA_BINARY_DIR "/device") + pluginDirectory + "/" + name +
                                      ".bundle",
                                  realPathOf(name), std::filesystem::copy_options::recursive);
        view_ = show(name, size);
        ASSERT_TRUE(view_) << name;
        send("appWillBecomeFirstResponder");
        send("appBecomeActive");
        settle();
    }
    /// Takes the view down, as when the phone ends in order.
    void closePlugin() {
        view_ = nullptr;
        closeWindow();
        loop.turn();
    }
    toolkit::UIView& view() { return *view_; }
    /// Calls an optional method, when the plug-in has it.
    void send(const char* method) {
        if (runtime::respondsTo(*view_, method))
            PluginTest::send(*view_, method);
    }
    /// Lets what a touch set off come to its end: pages slide for less than this.
    void settle() { loop.advance(0.6); }

    /// Everything that is written on the view, in the order of drawing.
    std::vector<std::string> texts() {
        std::vector<std::string> result;
        for (const Writing& writing : writings())
            result.push_back(writing.text);
        return result;
    }
    bool shows(const std::string& text) {
        const auto all = texts();
        return std::find(all.begin(), all.end(), text) != all.end();
    }
    /// Taps the last text that reads so.
    void tap(const std::string& text) {
        const auto all = writings();
        const auto found = std::find_if(all.rbegin(), all.rend(),
                                        [&](const Writing& writing) { return writing.text == text; });
        ASSERT_NE(found, all.rend()) << "\"" << text << "\" is not to be seen";
        tapAt(found->place);
    }
    void tapAt(toolkit::Point point) {
        support::Finger(loop).tap(point);
        settle();
    }
    static void type(const std::string& text) {
        ASSERT_NE(toolkit::TextInput::current(), nullptr);
        toolkit::TextInput::current()->insertText(text);
    }

    /// Frames in which anything changed while `seconds` pass.
    int framesDrawnWithin(double seconds) {
        auto& windows = toolkit::WindowServer::shared();
        int frames = 0;
        const auto last = static_cast<int>(seconds / foundation::RunLoop::frameInterval);
        for (int frame = 0; frame < last; ++frame) {
            loop.advance(foundation::RunLoop::frameInterval);
            if (!windows.needsFrame())
                continue;
            windows.composeFrame();
            ++frames;
        }
        return frames;
    }
    /// After the message `method` neither a timer runs nor a frame is drawn, and what has been closed and is
    /// to be opened again by `resume` works as `timers` says.
    void expectRestAfter(const char* method) {
        send(method);
        settle();
        framesDrawnWithin(0.1);
        EXPECT_EQ(TimerState::running(), 0) << method;
        EXPECT_EQ(framesDrawnWithin(70), 0) << method;
    }

private:
    struct Writing {
        std::string text;
        toolkit::Point place; // on the screen, within the first letter
    };

    static void collect(const toolkit::UIView& view, std::vector<Writing>& into) {
        if (view.isHidden() || view.alpha() == 0)
            return;
        if (view.drawsContent()) {
            toolkit::RecordingCanvas canvas;
            const_cast<toolkit::UIView&>(view).drawContent(canvas, view.bounds());
            for (const auto& command : canvas.commands())
                if (command.name == "drawText")
                    into.push_back(writingOf(command.arguments, view));
        }
        for (const auto& subview : view.subviews())
            collect(*subview, into);
    }
    /// `"text" size 17 weight 2 (x, y) rgba(…)`
    static Writing writingOf(const std::string& arguments, const toolkit::UIView& view) {
        const auto end = arguments.rfind("\" size ");
        double x = 0, y = 0;
        if (std::sscanf(arguments.c_str() + arguments.find('(', end), "(%lf, %lf)", &x, &y) != 2)
            throw std::runtime_error("no place in " + arguments);
        return {arguments.substr(1, end - 1), view.convertPointTo({x + 3, y + 8}, nullptr)};
    }
    std::vector<Writing> writings() {
        loop.turn();
        std::vector<Writing> all;
        collect(*view_, all);
        return all;
    }

    std::shared_ptr<toolkit::UIView> view_;
};

} // namespace plugins

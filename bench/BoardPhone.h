// What the board's benchmarks do to the phone: install plug-ins, pull the left panel, find the board.
#pragma once

#include "bench/RunningPhone.h"
#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <algorithm>
#include <stdexcept>

namespace bench {

inline std::filesystem::path plugInDirectory(const RunningPhone& running) {
    return running.root.path() / "Library/Application Support/Vela/Plugins";
}

inline std::filesystem::path firstPartyPlugIns() {
    return VELA_BINARY_DIR "/device/Library/Application Support/Vela/Plugins";
}

/// The pull up to where the panel begins to move, which is when the board looks for plug-ins.
inline void beginPull(RunningPhone& running) {
    running.phone->touchDown(1, {5, 300});
    running.loop.advance(foundation::RunLoop::frameInterval);
    running.step({30, 300});
}
inline void finishPull(RunningPhone& running) {
    for (double x = 30; x <= 330; x += 20) {
        running.loop.advance(foundation::RunLoop::frameInterval);
        running.step({x, 300});
    }
    running.loop.advance(0.2);
    running.phone->touchUp(1);
    running.settle(1);
}

inline void tap(RunningPhone& running, toolkit::Point point) {
    running.phone->touchDown(1, point);
    running.loop.advance(0.05);
    running.phone->touchUp(1);
}

inline std::shared_ptr<toolkit::UIView> find(const toolkit::UIView& within, const std::string& cls) {
    for (const auto& view : within.subviews()) {
        if (view->isa().name() == cls)
            return view;
        if (auto deeper = find(*view, cls))
            return deeper;
    }
    return nullptr;
}

/// The board in the left panel.
inline std::shared_ptr<toolkit::UIScrollView> board() {
    for (const auto* window : toolkit::WindowServer::shared().windows())
        if (auto found = find(*window, "velaBoard"))
            return std::dynamic_pointer_cast<toolkit::UIScrollView>(found);
    throw std::runtime_error("there is no board");
}

inline int tileCount() {
    return static_cast<int>(std::ranges::count_if(
        board()->subviews(), [](const auto& view) { return view->isa().name() == "velaApplicationView"; }));
}
/// Tiles as large as the board.
inline int openTiles() {
    return static_cast<int>(std::ranges::count_if(board()->subviews(), [](const auto& view) {
        return view->isa().name() == "velaApplicationView" && view->frame().width == board()->bounds().width;
    }));
}

} // namespace bench

// The product's windows on one output of the compositor, and the fingers that touch them.
//
// At rest there is no surface but a thin clear strip for each window that takes touches and cannot be seen.
// As soon as a window can be seen, the stage is put up, over a picture of the screen taken beforehand for its
// glass; when none can be seen any more it goes, and with it all memory that it needed. Nothing is drawn but
// what changed, no faster than the compositor shows it. Main thread only.
//
// Some compositors give the place of a moving finger on whichever surface lies beneath it, rather than on the
// one that it went down on, and none where nothing lies. So a clear cover is laid over the screen while a
// finger moves, and a place is read in the way that brings it nearer to the last one.
#pragma once

#include "hosts/session/surfaces/Stage.h"
#include "hosts/session/wayland/Connection.h"
#include "hosts/session/wayland/EventClock.h"
#include "hosts/session/wayland/Seat.h"
#include "platform/foundation/Handle.h"

#include <map>
#include <memory>
#include <optional>

namespace session {

class SessionScreen final : public InputReceiver {
public:
    struct Callbacks {
        /// The stage takes the keyboard, or gives it back. Called before the compositor hears of it.
        std::function<void(bool)> keyboardTaken;
        std::function<void()> escapePressed;
        /// Something of the product's can be seen from now on, or nothing any more.
        std::function<void(bool)> seen;
    };
    /// The connection outlives this object.
    SessionScreen(Connection& connection, Callbacks callbacks);
    ~SessionScreen() override;

    /// Moves everything to an output, or nowhere.
    void setOutput(const Output* output);
    const Output* output() const { return output_; }
    /// While withheld nothing of the product is shown or touched.
    void setWithheld(bool withheld);
    /// Whatever they were doing comes to nothing.
    void cancelAllFingers();
    bool isStageUp() const { return stage_ != nullptr; }
    /// What the output shows now, in the size that glass has; null when it cannot be told.
    std::shared_ptr<const toolkit::Image> capture();

    void fingerDown(std::int64_t finger, wl_surface* surface, toolkit::Point point,
                    std::uint32_t time) override;
    void fingerMoved(std::int64_t finger, toolkit::Point point, std::uint32_t time) override;
    void fingerUp(std::int64_t finger, std::uint32_t time) override;
    void fingerCancelled(std::int64_t finger) override;
    void keyPressed(Key key, const std::string& text) override;

private:
    struct Strip {
        std::unique_ptr<LayerSurface> surface;
        PointRect frame;
    };
    using Windows = std::vector<toolkit::SeparateWindow>;

    void present();
    void stageIsFree();
    void showStrips(const Windows& windows);
    void showStage(const Windows& windows);
    void closeStrip(std::uint64_t id);
    void closeStage();
    void putUpStage();
    void takeDownStage();
    void takeDownStrips();
    void useKeyboard(const Windows& windows);
    void takeSeat();
    std::optional<toolkit::Point> originOf(wl_surface* surface) const;
    void cancelFingers(const std::function<bool(wl_surface*)>& isOn);
    void cancelFingersOn(const wl_surface* surface);
    void noteFingerGone();
    void putUpCover();
    void takeDownCover();
    double timeOf(std::uint32_t milliseconds, bool isFirst);

    Connection& connection_;
    Callbacks callbacks_;
    SolidPixels pixels_;
    Glass glass_;
    std::unique_ptr<Seat> seat_;
    const Output* output_ = nullptr;
    std::map<std::uint64_t, Strip> strips_; // by the window's layer
    std::unique_ptr<Stage> stage_;
    KeyboardUse keyboardUse_ = KeyboardUse::None;
    bool withheld_ = false;
    bool due_ = true; // something must be shown anew that the windows do not know of
    std::shared_ptr<const toolkit::Image> captured_; // while something is or may soon be seen
    double captureTime_ = 0;
    EventClock clock_;
    struct Finger {
        wl_surface* surface;
        toolkit::Point origin; // of the surface; the others are on the screen, too
        toolkit::Point start;
        toolkit::Point last;
    };
    toolkit::Point read(const Finger& finger, toolkit::Point point) const;
    std::map<std::int64_t, Finger> fingers_;
    foundation::Handle fingerAwaited_; // for a moment, by the frame that is due
    std::unique_ptr<LayerSurface> cover_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // for blocks that come later
    foundation::Handle commitHook_;
};

} // namespace session

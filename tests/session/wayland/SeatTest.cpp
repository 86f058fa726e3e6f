// What a seat makes of its devices: those that end what they do in other ways than a hand would.
#include "hosts/session/wayland/Seat.h"
#include "hosts/session/wayland/Protocols.h"
#include "tests/session/ClientConnection.h"
#include "tests/session/parent/ParentCompositor.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <wayland-client.h>

#include "xdg-shell-client-protocol.h"

namespace session {

using testing::ElementsAre;

namespace {

class Recorder final : public InputReceiver {
public:
    std::vector<std::string> heard;

    void fingerDown(std::int64_t finger, wl_surface*, toolkit::Point, std::uint32_t) override {
        note("down", finger);
    }
    void fingerMoved(std::int64_t finger, toolkit::Point, std::uint32_t) override { note("moved", finger); }
    void fingerUp(std::int64_t finger, std::uint32_t) override { note("up", finger); }
    void fingerCancelled(std::int64_t finger) override { note("cancelled", finger); }
    void keyPressed(Key, const std::string&) override {}

private:
    void note(const std::string& what, std::int64_t finger) {
        heard.push_back(what + " " + std::to_string(finger));
    }
};

} // namespace

/// A client of the parent compositor, whose window the fingers are put on.
class SeatTest : public testing::Test {
protected:
    SeatTest() {
        auto* compositor = connection_.keep(connection_.bind<wl_compositor>(wl_compositor_interface, 4));
        auto* shell = connection_.keep(connection_.bind<xdg_wm_base>(xdg_wm_base_interface, 1));
        wl_surface* surface = connection_.keep(wl_compositor_create_surface(compositor));
        xdg_surface* shown = connection_.keep(xdg_wm_base_get_xdg_surface(shell, surface));
        connection_.keep(xdg_surface_get_toplevel(shown));
        seat_.emplace(Proxy<wl_seat>(connection_.bind<wl_seat>(wl_seat_interface, 5)), recorder_);
        perform([](tests::ParentSeat& seat) { seat.plugIn(); });
    }
    /// Until this client has heard of it, and the compositor of its answer.
    void perform(const std::function<void(tests::ParentSeat&)>& work) {
        connection_.roundTrip();
        parent_.perform(work);
        connection_.roundTrip();
        connection_.roundTrip();
    }
    const std::vector<std::string>& heard() const { return recorder_.heard; }

private:
    tests::TemporaryDirectory directory_;
    tests::ParentCompositor parent_{directory_.path() / "parent", 100, 100};
    tests::ClientConnection connection_{directory_.path() / "parent"};
    Recorder recorder_;
    std::optional<Seat> seat_;
};

TEST_F(SeatTest, ACancelTakesEveryFingerThatIsDown) {
    perform([](tests::ParentSeat& seat) {
        for (const int finger : {0, 1, 2})
            seat.down(finger, 10, 10, 1);
        seat.up(1, 2);
        seat.cancel();
    });
    EXPECT_THAT(heard(), ElementsAre("down 0", "down 1", "down 2", "up 1", "cancelled 0", "cancelled 2"));
}

TEST_F(SeatTest, ATouchScreenThatGoesTakesItsFingersAlong) {
    perform([](tests::ParentSeat& seat) { seat.down(3, 10, 10, 1); });
    perform([](tests::ParentSeat& seat) { seat.plugOut(); });
    EXPECT_THAT(heard(), ElementsAre("down 3", "cancelled 3"));
    perform([](tests::ParentSeat& seat) { seat.plugIn(); });
    perform([](tests::ParentSeat& seat) {
        seat.down(3, 10, 10, 2);
        seat.motion(3, 20, 10, 3);
        seat.up(3, 4);
    });
    EXPECT_THAT(heard(), ElementsAre("down 3", "cancelled 3", "down 3", "moved 3", "up 3"));
}

} // namespace session

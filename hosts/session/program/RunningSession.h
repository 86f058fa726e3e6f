// The session host, put together: compositor, buses, home screen and product.
//
// Made once, after the main run loop and the device root, and never torn down: the product's windows and
// timers live until the process ends. What belongs to one compositor is made anew when that has been started
// again.
#pragma once

#include "hosts/script/NotificationRecorder.h"
#include "hosts/session/bus/ControlService.h"
#include "hosts/session/homescreen/SessionHomeScreen.h"
#include "hosts/session/homescreen/SessionPresenter.h"
#include "hosts/session/media/SessionMusic.h"
#include "hosts/session/program/Options.h"
#include "hosts/session/surfaces/SessionScreen.h"
#include "hosts/session/wayland/MissingProtocols.h"
#include "hosts/session/wayland/Toplevels.h"
#include "platform/foundation/GlibRunLoop.h"

namespace session {

class RunningSession {
public:
    /// Throws ConnectionError or device::ProgramError.
    RunningSession(const Options& options, foundation::GlibRunLoop& loop);

private:
    void connect();
    void watchToplevels();
    void putUpScreen();
    void setSeen(bool seen);
    void reconnect();
    void disconnect();
    void chooseOutput();
    const Output* wantedOutput() const;
    void connectionLost();
    void screenIsResizing(bool turning);
    bool mayShowPanels() const;
    void shownHasChanged();
    std::string describeState() const;

    foundation::GlibRunLoop& loop_;
    std::string outputName_;
    double startTime_;
    script::NotificationRecorder notifications_;
    bus::Bus sessionBus_{bus::Bus::Kind::Session,
                         "vela-session: no session bus; going on without what it would tell"};
    bus::Bus systemBus_{bus::Bus::Kind::System,
                        "vela-session: no system bus; going on without what it would tell"};
    MissingProtocols missing_;
    std::string waitingBecause_; // no compositor can be used, as the log was told last
    std::unique_ptr<Connection> connection_;
    std::unique_ptr<Toplevels> toplevels_;
    std::unique_ptr<SessionScreen> screen_;
    SessionHomeScreen homeScreen_;
    SessionPresenter presenter_{sessionBus_};
    SessionMusic music_{sessionBus_};
    Panels panels_;
    ControlService control_;
    foundation::Handle retry_;
};

} // namespace session

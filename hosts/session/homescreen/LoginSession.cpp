#include "hosts/session/homescreen/LoginSession.h"

#include <gio/gio.h>

#include <cstdlib>
#include <utility>

#include <unistd.h>

namespace session {

namespace {

constexpr const char* service = "org.freedesktop.login1";

} // namespace

LoginSession::LoginSession(bus::Bus& system, std::function<void()> changed)
    : bus_(system),
      changed_(std::move(changed)),
      manager_(system, {service, "/org/freedesktop/login1", "org.freedesktop.login1.Manager"}, {[this] {
                   if (std::exchange(wasThere_, manager_.isThere()) != manager_.isThere())
                       findSession();
               }}) {}

void LoginSession::findSession() {
    session_.reset();
    path_.clear();
    lockedHint_.reset();
    // What was locked stays so: nobody is left who could say otherwise. Nor could anybody wake what is idle.
    take(locked_, false);
    if (!manager_.isThere())
        return;
    // A service of the user's belongs to no session: then it is the one that the user sees.
    const auto found = [this](const std::string& path) {
        if (path.empty())
            manager_.call("GetSession", g_variant_new("(s)", "auto"), [this](auto& own) { watch(own); });
        else
            watch(path);
    };
    const char* identifier = std::getenv("XDG_SESSION_ID");
    if (identifier && *identifier)
        manager_.call("GetSession", g_variant_new("(s)", identifier), found);
    else
        manager_.call("GetSessionByPID", g_variant_new("(u)", static_cast<guint32>(getpid())), found);
}

void LoginSession::watch(const std::string& path) {
    if (path.empty() || path == path_)
        return;
    path_ = path;
    const auto signalled = [this](const std::string& signal) {
        if (signal == "Lock" || signal == "Unlock")
            take(signal == "Lock", idle_);
    };
    session_ =
        std::make_unique<BusObject>(bus_, BusObject::Address{service, path, "org.freedesktop.login1.Session"},
                                    BusObject::Callbacks{[this] { readHints(); }, signalled});
}

void LoginSession::readHints() {
    if (!session_ || !session_->isThere())
        return;
    // The hint counts when it changes: in between, signals have the last word.
    const bool hint = session_->booleanProperty("LockedHint", false);
    const bool isNews = std::exchange(lockedHint_, hint) != hint;
    take(isNews ? hint : locked_, session_->booleanProperty("IdleHint", false));
}

void LoginSession::take(bool locked, bool idle) {
    const bool lockChanged = std::exchange(locked_, locked) != locked;
    const bool idleChanged = std::exchange(idle_, idle) != idle;
    if (lockChanged || idleChanged)
        changed_();
}

} // namespace session

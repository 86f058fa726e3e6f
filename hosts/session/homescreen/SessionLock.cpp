#include "hosts/session/homescreen/SessionLock.h"

#include <gio/gio.h>

#include <cstdlib>
#include <utility>

#include <unistd.h>

namespace session {

namespace {

constexpr const char* service = "org.freedesktop.login1";

} // namespace

SessionLock::SessionLock(Bus& system, std::function<void()> changed)
    : bus_(system),
      changed_(std::move(changed)),
      manager_(system, {service, "/org/freedesktop/login1", "org.freedesktop.login1.Manager"}, {[this] {
                   if (std::exchange(wasThere_, manager_.isThere()) != manager_.isThere())
                       findSession();
               }}) {}

void SessionLock::findSession() {
    session_.reset();
    path_.clear();
    hint_.reset();
    if (!manager_.isThere())
        return; // what was locked stays so: nobody is left who could say otherwise
    const char* identifier = std::getenv("XDG_SESSION_ID");
    const auto found = [this](const std::string& path) { watch(path); };
    if (identifier && *identifier)
        manager_.call("GetSession", g_variant_new("(s)", identifier), found);
    else
        manager_.call("GetSessionByPID", g_variant_new("(u)", static_cast<guint32>(getpid())), found);
}

void SessionLock::watch(const std::string& path) {
    if (path.empty() || path == path_)
        return;
    path_ = path;
    const auto changed = [this] {
        // The hint counts when it changes: in between, signals have the last word.
        if (!session_ || !session_->isThere())
            return;
        const bool hint = session_->booleanProperty("LockedHint", false);
        if (std::exchange(hint_, hint) != hint)
            setLocked(hint);
    };
    const auto signalled = [this](const std::string& signal) {
        if (signal == "Lock" || signal == "Unlock")
            setLocked(signal == "Lock");
    };
    session_ =
        std::make_unique<BusObject>(bus_, BusObject::Address{service, path, "org.freedesktop.login1.Session"},
                                    BusObject::Callbacks{changed, signalled});
}

void SessionLock::setLocked(bool locked) {
    if (std::exchange(locked_, locked) != locked)
        changed_();
}

} // namespace session

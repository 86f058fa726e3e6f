#include "hosts/media/mpris/SessionBus.h"

#include "platform/foundation/RunLoop.h"

#include <filesystem>
#include <optional>
#include <string>

#include <gio/gio.h>

namespace playback {

namespace {

constexpr double retryInterval = 3; // seconds

/// Nothing when this session has no bus; asking the library instead would start one.
std::optional<std::string> addressOfBus() {
    if (const char* address = g_getenv("DBUS_SESSION_BUS_ADDRESS"); address && *address)
        return address;
    const char* directory = g_getenv("XDG_RUNTIME_DIR");
    if (!directory || !*directory)
        return std::nullopt;
    std::error_code error;
    const auto socket = std::filesystem::path(directory) / "bus";
    if (!std::filesystem::is_socket(socket, error))
        return std::nullopt;
    const std::unique_ptr<gchar, void (*)(gpointer)> escaped(g_dbus_address_escape_value(socket.c_str()),
                                                             g_free);
    return std::string("unix:path=") + escaped.get();
}

/// What an answer that comes late finds: whether it is still waited for.
struct Attempt {
    std::shared_ptr<GCancellable> cancellable;
    std::function<void(std::shared_ptr<GDBusConnection>)> done;
};

void finishAttempt(GObject*, GAsyncResult* result, gpointer data) {
    const std::shared_ptr<Attempt> attempt(static_cast<Attempt*>(data));
    GDBusConnection* made = g_dbus_connection_new_for_address_finish(result, nullptr);
    const std::shared_ptr<GDBusConnection> connection(made,
                                                      [](GDBusConnection* each) { g_clear_object(&each); });
    foundation::RunLoop::main().performOnMain([attempt, connection] {
        if (!g_cancellable_is_cancelled(attempt->cancellable.get()))
            attempt->done(connection);
    });
}

} // namespace

SessionBus::SessionBus() : cancellable_(g_cancellable_new(), g_object_unref) {
    connect();
}

SessionBus::~SessionBus() {
    g_cancellable_cancel(cancellable_.get());
    if (connection_)
        g_signal_handler_disconnect(connection_.get(), closedHandler_);
}

void SessionBus::connect() {
    const auto address = addressOfBus();
    if (!address) {
        tryLater();
        return;
    }
    // A connection of its own: the one that all of a process share ends the process with the bus.
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    const auto done = [this](std::shared_ptr<GDBusConnection> connection) {
        connected(std::move(connection));
    };
    g_dbus_connection_new_for_address(address->c_str(), flags, nullptr, cancellable_.get(), finishAttempt,
                                      new Attempt{cancellable_, done});
}

void SessionBus::connected(std::shared_ptr<GDBusConnection> connection) {
    if (!connection || g_dbus_connection_is_closed(connection.get())) {
        tryLater();
        return;
    }
    connection_ = std::move(connection);
    const auto closed = +[](GDBusConnection*, gboolean, GError*, gpointer data) {
        auto& bus = *static_cast<SessionBus*>(data);
        foundation::RunLoop::main().performOnMain([&bus, cancellable = bus.cancellable_] {
            if (!g_cancellable_is_cancelled(cancellable.get()))
                bus.lost();
        });
    };
    closedHandler_ = g_signal_connect(connection_.get(), "closed", G_CALLBACK(closed), this);
    observers_.notify();
}

void SessionBus::lost() {
    g_signal_handler_disconnect(connection_.get(), closedHandler_);
    connection_.reset();
    tryLater();
    observers_.notify();
}

void SessionBus::tryLater() {
    retry_ = foundation::RunLoop::main().scheduleTimer(retryInterval, false, [this] { connect(); });
}

} // namespace playback

#include "hosts/bus/Bus.h"

#include "platform/foundation/Log.h"
#include "platform/foundation/RunLoop.h"

#include <filesystem>
#include <optional>
#include <utility>

#include <gio/gio.h>

namespace bus {

namespace {

constexpr double retryInterval = 3; // seconds

/// Nothing when this session has no bus; asking the library instead would start one.
std::optional<std::string> addressOfSessionBus() {
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

std::optional<std::string> addressOf(Bus::Kind kind) {
    if (kind == Bus::Kind::Session)
        return addressOfSessionBus();
    const std::unique_ptr<gchar, void (*)(gpointer)> address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SYSTEM, nullptr, nullptr), g_free);
    return address ? std::optional<std::string>(address.get()) : std::nullopt;
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

Bus::Bus(Kind kind, std::string whenAway)
    : kind_(kind), whenAway_(std::move(whenAway)), cancellable_(g_cancellable_new(), g_object_unref) {
    connect();
}

Bus::~Bus() {
    g_cancellable_cancel(cancellable_.get());
    if (connection_)
        g_signal_handler_disconnect(connection_.get(), closedHandler_);
}

void Bus::connect() {
    const auto address = addressOf(kind_);
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

void Bus::connected(std::shared_ptr<GDBusConnection> connection) {
    if (!connection || g_dbus_connection_is_closed(connection.get())) {
        tryLater();
        return;
    }
    connection_ = std::move(connection);
    isAwaySaid_ = false;
    const auto closed = +[](GDBusConnection*, gboolean, GError*, gpointer data) {
        auto& bus = *static_cast<Bus*>(data);
        foundation::RunLoop::main().performOnMain([&bus, cancellable = bus.cancellable_] {
            if (!g_cancellable_is_cancelled(cancellable.get()))
                bus.lost();
        });
    };
    closedHandler_ = g_signal_connect(connection_.get(), "closed", G_CALLBACK(closed), this);
    observers_.notify();
}

void Bus::lost() {
    g_signal_handler_disconnect(connection_.get(), closedHandler_);
    connection_.reset();
    tryLater();
    observers_.notify();
}

void Bus::tryLater() {
    if (!std::exchange(isAwaySaid_, true) && !whenAway_.empty())
        foundation::log(whenAway_);
    retry_ = foundation::RunLoop::main().scheduleTimer(retryInterval, false, [this] { connect(); });
}

} // namespace bus

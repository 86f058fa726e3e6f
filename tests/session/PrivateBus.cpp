#include "tests/session/PrivateBus.h"

#include "tests/session/Patience.h"

namespace tests {

PrivateBus::PrivateBus() : address_("unix:path=" + (directory_.path() / "bus").string()) {
    start();
}

PrivateBus::~PrivateBus() {
    stop();
}

bool PrivateBus::start() {
    daemon_ = std::make_unique<support::BackgroundProcess>(
        std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nosyslog",
                                 "--address=" + address_},
        std::vector<std::string>{});
    return eventually([&] {
        connection_ = g_dbus_connection_new_for_address_sync(
            address_.c_str(),
            GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                 G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, nullptr);
        return connection_ != nullptr;
    });
}

void PrivateBus::stop() {
    if (connection_) {
        g_dbus_connection_set_exit_on_close(connection_, FALSE);
        g_dbus_connection_close_sync(connection_, nullptr, nullptr);
        g_clear_object(&connection_);
    }
    daemon_.reset();
}

std::vector<std::string> PrivateBus::environment() const {
    return {"DBUS_SESSION_BUS_ADDRESS=" + address_, "DBUS_SYSTEM_BUS_ADDRESS=" + address_};
}

GVariant* PrivateBus::call(const std::string& name, const std::string& path, const std::string& interface,
                           const std::string& method, GVariant* arguments) {
    GError* error = nullptr;
    constexpr int patience = 10'000; // milliseconds
    GVariant* answer = g_dbus_connection_call_sync(
        connection_, name.c_str(), path.c_str(), interface.c_str(), method.c_str(), arguments, nullptr,
        G_DBUS_CALL_FLAGS_NO_AUTO_START, patience, nullptr, &error);
    lastError_ = error ? error->message : "";
    g_clear_error(&error);
    return answer;
}

bool PrivateBus::has(const std::string& name) {
    GVariant* answer = call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                            "NameHasOwner", g_variant_new("(s)", name.c_str()));
    if (!answer)
        return false;
    gboolean there = FALSE;
    g_variant_get(answer, "(b)", &there);
    g_variant_unref(answer);
    return there;
}

void PrivateBus::emit(const std::string& path, const std::string& interface, const std::string& signal) {
    g_dbus_connection_emit_signal(connection_, nullptr, path.c_str(), interface.c_str(), signal.c_str(),
                                  nullptr, nullptr);
    g_dbus_connection_flush_sync(connection_, nullptr, nullptr);
}

} // namespace tests

#include "hosts/session/bus/Bus.h"

#include "platform/foundation/Log.h"
#include "platform/foundation/RunLoop.h"

#include <gio/gio.h>

#include <string>
#include <utility>

namespace session {

namespace {

constexpr double retryInterval = 3; // seconds

GBusType typeOf(Bus::Kind kind) {
    return kind == Bus::Kind::Session ? G_BUS_TYPE_SESSION : G_BUS_TYPE_SYSTEM;
}

} // namespace

Bus::Bus(Kind kind) : kind_(kind), observers_(std::make_shared<std::list<std::function<void()>>>()) {
    connect();
}

Bus::~Bus() {
    observers_.reset();
    lost();
}

foundation::Handle Bus::observe(std::function<void()> changed) {
    observers_->push_back(std::move(changed));
    return foundation::Handle([weak = std::weak_ptr(observers_), place = std::prev(observers_->end())] {
        if (const auto observers = weak.lock())
            observers->erase(place);
    });
}

/// A connection of its own: the one that a process shares ends the process when the bus goes.
void Bus::connect() {
    retry_.reset();
    g_autofree char* address = g_dbus_address_get_for_bus_sync(typeOf(kind_), nullptr, nullptr);
    GDBusConnection* connection = nullptr;
    if (address)
        connection = g_dbus_connection_new_for_address_sync(
            address,
            static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, nullptr);
    if (connection)
        return connected(connection);
    if (!std::exchange(reported_, true))
        foundation::log(std::string("vela-session: no ") + (kind_ == Kind::Session ? "session" : "system") +
                        " bus; going on without what it would tell");
    retry_ = foundation::RunLoop::main().scheduleTimer(retryInterval, false, [this] { connect(); });
}

void Bus::connected(GDBusConnection* connection) {
    connection_ = connection;
    reported_ = false;
    g_dbus_connection_set_exit_on_close(connection, FALSE);
    closedSignal_ = g_signal_connect(connection, "closed",
                                     G_CALLBACK(+[](GDBusConnection*, gboolean, GError*, gpointer data) {
                                         auto& bus = *static_cast<Bus*>(data);
                                         bus.lost();
                                         bus.tell();
                                         bus.connect();
                                     }),
                                     this);
    tell();
}

void Bus::lost() {
    if (!connection_)
        return;
    g_signal_handler_disconnect(connection_, closedSignal_);
    g_object_unref(std::exchange(connection_, nullptr));
}

void Bus::tell() const {
    const auto observers = *observers_;
    for (const auto& observer : observers)
        observer();
}

} // namespace session

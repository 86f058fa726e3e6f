#include "hosts/media/mpris/BusCalls.h"

#include "platform/foundation/RunLoop.h"

#include <utility>

namespace playback {

namespace {

struct Receiver {
    std::function<void(GVariant*)> received;
    bool ended = false;
};

struct Call {
    std::function<void(GVariant*)> answered;
    std::unique_ptr<GCancellable, void (*)(gpointer)> cancellable{nullptr, g_object_unref};
};

// What the bus brings comes between the turns of the main loop; a block of its own makes it a part of one.
void finishCall(GObject* connection, GAsyncResult* result, gpointer data) {
    const std::shared_ptr<Call> call(static_cast<Call*>(data));
    const std::shared_ptr<GVariant> answer(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr),
        [](GVariant* value) { g_clear_pointer(&value, g_variant_unref); });
    if (!call->answered)
        return;
    foundation::RunLoop::main().performOnMain([call, answer] {
        if (!call->cancellable || !g_cancellable_is_cancelled(call->cancellable.get()))
            call->answered(answer.get());
    });
}

void receiveSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                   GVariant* arguments, gpointer data) {
    const std::weak_ptr<Receiver> receiver = *static_cast<std::shared_ptr<Receiver>*>(data);
    const std::shared_ptr<GVariant> kept(g_variant_ref(arguments), g_variant_unref);
    foundation::RunLoop::main().performOnMain([receiver, kept] {
        if (const auto standing = receiver.lock(); standing && !standing->ended)
            standing->received(kept.get());
    });
}

void dropReceiver(gpointer data) {
    delete static_cast<std::shared_ptr<Receiver>*>(data);
}

} // namespace

void callMethod(GDBusConnection* connection, const std::string& name, const char* path, const char* interface,
                const char* method, GVariant* arguments, GCancellable* cancellable,
                std::function<void(GVariant*)> answered) {
    auto* call = new Call{std::move(answered)};
    if (cancellable)
        call->cancellable.reset(G_CANCELLABLE(g_object_ref(cancellable)));
    g_dbus_connection_call(connection, name.c_str(), path, interface, method, arguments, nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, cancellable, finishCall, call);
}

foundation::Handle subscribe(GDBusConnection* connection, const Signal& signal,
                             std::function<void(GVariant*)> received) {
    const auto receiver = std::make_shared<Receiver>(Receiver{std::move(received)});
    const guint number = g_dbus_connection_signal_subscribe(
        connection, signal.sender.empty() ? nullptr : signal.sender.c_str(), signal.interface, signal.member,
        signal.path, signal.argument0, signal.flags, receiveSignal, new std::shared_ptr<Receiver>(receiver),
        dropReceiver);
    const std::shared_ptr<GDBusConnection> kept(G_DBUS_CONNECTION(g_object_ref(connection)), g_object_unref);
    return foundation::Handle([kept, number, receiver] {
        g_dbus_connection_signal_unsubscribe(kept.get(), number);
        receiver->ended = true; // also for what has come in but has not been told yet
    });
}

} // namespace playback

// Calls and signals of a message bus, answered on the main loop.
#pragma once

#include "hosts/media/mpris/Variant.h"
#include "platform/foundation/Handle.h"

#include <functional>
#include <string>

namespace playback {

/// Calls a method. `answered` gets its answer, or null when that failed, in a turn of the main loop; it is
/// not called any more once `cancellable` is cancelled. May be empty.
void callMethod(GDBusConnection* connection, const std::string& name, const char* path, const char* interface,
                const char* method, GVariant* arguments, GCancellable* cancellable,
                std::function<void(GVariant* answer)> answered = {});

struct Signal {
    std::string sender; // a bus name; empty for any
    const char* path;   // null for any
    const char* interface;
    const char* member;
    const char* argument0 = nullptr; // the first argument, or with MatchNamespace what it begins with
    GDBusSignalFlags flags = G_DBUS_SIGNAL_FLAGS_NONE;
};

/// Calls `received` with a signal's arguments in a turn of the main loop, as long as the handle lives.
foundation::Handle subscribe(GDBusConnection* connection, const Signal& signal,
                             std::function<void(GVariant* arguments)> received);

} // namespace playback

#include "hosts/session/program/ControlClient.h"

#include "hosts/device/ProgramError.h"
#include "hosts/session/bus/ControlService.h"

#include <gio/gio.h>

#include <cstdio>

namespace session {

namespace {

const char* methodOf(Options::Request request) {
    switch (request) {
    case Options::Request::Show:
        return "Show";
    case Options::Request::Toggle:
        return "Toggle";
    case Options::Request::DescribeState:
        return "DescribeState";
    default:
        return "Dismiss";
    }
}

std::string reasonOf(const GError& error) {
    if (g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) ||
        g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER))
        return "no session host is running";
    g_autoptr(GError) bare = g_error_copy(&error);
    g_dbus_error_strip_remote_error(bare);
    return bare->message;
}

} // namespace

void sendRequest(const Options& options) {
    g_autoptr(GError) error = nullptr;
    g_autoptr(GDBusConnection) connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
    if (!connection)
        throw device::ProgramError(std::string("there is no session bus: ") + error->message);
    const bool hasSide =
        options.request == Options::Request::Show || options.request == Options::Request::Toggle;
    GVariant* arguments = hasSide ? g_variant_new("(s)", nameOf(options.side)) : nullptr;
    g_autoptr(GVariant) answer = g_dbus_connection_call_sync(
        connection, ControlService::name, ControlService::path, ControlService::name,
        methodOf(options.request), arguments, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, &error);
    if (!answer)
        throw device::ProgramError(reasonOf(*error));
    if (g_variant_is_of_type(answer, G_VARIANT_TYPE("(s)"))) {
        const char* text = nullptr;
        g_variant_get(answer, "(&s)", &text);
        std::puts(text);
    }
}

} // namespace session

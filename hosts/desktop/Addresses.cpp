#include "hosts/desktop/Addresses.h"

#include <memory>

#include <gio/gio.h>

namespace desktop {

namespace {

void launch(const std::string& address) {
    g_app_info_launch_default_for_uri_async(address.c_str(), nullptr, nullptr, nullptr, nullptr);
}

void portalAnswered(GObject* bus, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<std::string> address(static_cast<std::string*>(data));
    g_autoptr(GVariant) answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr);
    if (!answer)
        launch(*address);
}

} // namespace

bool canOpenAddress(const std::string& address) {
    g_autofree char* scheme = g_uri_parse_scheme(address.c_str());
    g_autoptr(GAppInfo) program = scheme ? g_app_info_get_default_for_uri_scheme(scheme) : nullptr;
    return program != nullptr;
}

void openAddress(const std::string& address, GDBusConnection* bus) {
    if (!bus)
        return launch(address);
    // Starting a portal where none runs can take longer than anybody waits for a page.
    g_dbus_connection_call(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                           "org.freedesktop.portal.OpenURI", "OpenURI",
                           g_variant_new("(ssa{sv})", "", address.c_str(), nullptr), G_VARIANT_TYPE("(o)"),
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, portalAnswered,
                           new std::string(address));
}

} // namespace desktop

#include "hosts/session/bus/ControlService.h"

#include "platform/foundation/Log.h"

#include <gio/gio.h>

#include <utility>

namespace session {

namespace {

constexpr const char* description = R"(<node>
  <interface name="org.lanternhub.vela3">
    <method name="Show"><arg name="side" type="s" direction="in"/></method>
    <method name="Dismiss"/>
    <method name="Toggle"><arg name="side" type="s" direction="in"/></method>
    <method name="DescribeState"><arg name="state" type="s" direction="out"/></method>
    <property name="Shown" type="s" access="read"/>
    <property name="LeftShown" type="b" access="read"/>
    <property name="RightShown" type="b" access="read"/>
  </interface>
</node>)";

GDBusInterfaceInfo* interfaceInfo() {
    // Never torn down: connections refer to it.
    static GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(description, nullptr);
    return node->interfaces[0];
}

} // namespace

struct ControlService::Interface {
    using Invocation = GDBusMethodInvocation;

    static void refuse(Invocation* invocation, const char* error, const char* reason) {
        g_dbus_method_invocation_return_dbus_error(invocation, error, reason);
    }

    static void showOrToggle(ControlService& service, const char* method, GVariant* arguments,
                             Invocation* invocation) {
        const char* text = nullptr;
        g_variant_get(arguments, "(&s)", &text);
        const auto side = sideNamed(text);
        if (!side)
            return refuse(invocation, "org.freedesktop.DBus.Error.InvalidArgs",
                          "a side is \"left\" or \"right\"");
        const bool toggles = g_str_equal(method, "Toggle");
        if (!(toggles ? service.panels_.toggle(*side) : service.panels_.show(*side)))
            return refuse(
                invocation, "org.lanternhub.vela3.Error.NotNow",
                "the panel cannot be called now: it is switched off, or the session is locked, or the "
                "keyboard or an application keeps it away");
        g_dbus_method_invocation_return_value(invocation, nullptr);
    }

    static void called(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, Invocation* invocation, gpointer data) {
        auto& service = *static_cast<ControlService*>(data);
        if (g_str_equal(method, "Dismiss")) {
            service.panels_.dismiss();
            g_dbus_method_invocation_return_value(invocation, nullptr);
        } else if (g_str_equal(method, "DescribeState")) {
            const std::string state = service.describeState_();
            g_dbus_method_invocation_return_value(invocation, g_variant_new("(s)", state.c_str()));
        } else {
            showOrToggle(service, method, arguments, invocation);
        }
    }

    static GVariant* property(const Panels& panels, const char* name) {
        const auto shown = panels.shown();
        if (g_str_equal(name, "LeftShown"))
            return g_variant_new_boolean(shown == Side::Left);
        if (g_str_equal(name, "RightShown"))
            return g_variant_new_boolean(shown == Side::Right);
        return g_variant_new_string(shown ? nameOf(*shown) : "");
    }

    static GVariant* asked(GDBusConnection*, const char*, const char*, const char*, const char* name,
                           GError**, gpointer data) {
        return property(static_cast<ControlService*>(data)->panels_, name);
    }

    static void nameLost(GDBusConnection* connection, const char*, gpointer) {
        if (connection)
            foundation::log(
                "vela-session: another program has the name org.lanternhub.vela3 on the session bus");
    }

    static constexpr GDBusInterfaceVTable table{called, asked, nullptr, {}};
};

ControlService::ControlService(bus::Bus& bus, Panels& panels, std::function<std::string()> describeState)
    : bus_(bus), panels_(panels), describeState_(std::move(describeState)) {
    busObserver_ = bus_.addObserver([this] {
        close();
        open();
    });
    open();
}

ControlService::~ControlService() {
    close();
}

void ControlService::open() {
    GDBusConnection* connection = bus_.connection();
    if (!connection)
        return;
    object_ = g_dbus_connection_register_object(connection, path, interfaceInfo(), &Interface::table, this,
                                                nullptr, nullptr);
    owner_ = g_bus_own_name_on_connection(connection, name, G_BUS_NAME_OWNER_FLAGS_NONE, nullptr,
                                          Interface::nameLost, this, nullptr);
}

void ControlService::close() {
    if (owner_ != 0)
        g_bus_unown_name(std::exchange(owner_, 0));
    if (object_ != 0 && bus_.connection())
        g_dbus_connection_unregister_object(bus_.connection(), object_);
    object_ = 0;
}

void ControlService::announce() {
    if (!bus_.connection())
        return;
    GVariantBuilder changed;
    g_variant_builder_init(&changed, G_VARIANT_TYPE("a{sv}"));
    for (const char* property : {"Shown", "LeftShown", "RightShown"})
        g_variant_builder_add(&changed, "{sv}", property, Interface::property(panels_, property));
    g_dbus_connection_emit_signal(bus_.connection(), nullptr, path, "org.freedesktop.DBus.Properties",
                                  "PropertiesChanged", g_variant_new("(sa{sv}as)", name, &changed, nullptr),
                                  nullptr);
}

} // namespace session

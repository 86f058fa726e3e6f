#include "hosts/session/bus/BusObject.h"

#include <gio/gio.h>

#include <utility>

namespace session {

namespace {

/// What an answer needs to find its way back, as long as the asker lives.
struct Reply {
    std::weak_ptr<BusObject*> asker;
    std::function<void(GVariant*)> answered; // of null when the service refused
};

std::string firstText(GVariant* answer) {
    if (!answer || g_variant_n_children(answer) == 0)
        return {};
    g_autoptr(GVariant) first = g_variant_get_child_value(answer, 0);
    const bool isText = g_variant_is_of_type(first, G_VARIANT_TYPE_STRING) ||
                        g_variant_is_of_type(first, G_VARIANT_TYPE_OBJECT_PATH);
    return isText ? g_variant_get_string(first, nullptr) : "";
}

} // namespace

BusObject::BusObject(bus::Bus& bus, Address address, Callbacks callbacks)
    : bus_(bus),
      address_(std::move(address)),
      callbacks_(std::move(callbacks)),
      self_(std::make_shared<BusObject*>(this)) {
    busObserver_ = bus_.addObserver([this] {
        close();
        open();
        callbacks_.changed();
    });
    open();
}

BusObject::~BusObject() {
    close();
}

void BusObject::open() {
    if (!bus_.connection())
        return;
    constexpr auto flags = G_DBUS_PROXY_FLAGS_DO_NOT_AUTO_START;
    const auto done = [](GObject*, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Reply> reply(static_cast<Reply*>(data));
        GDBusProxy* proxy = g_dbus_proxy_new_finish(result, nullptr);
        const auto asker = reply->asker.lock();
        if (proxy && asker && !(*asker)->proxy_)
            (*asker)->opened(proxy);
        else if (proxy)
            g_object_unref(proxy);
    };
    g_dbus_proxy_new(bus_.connection(), flags, nullptr, address_.name.c_str(), address_.path.c_str(),
                     address_.interface.c_str(), nullptr, done, new Reply{self_, {}});
}

void BusObject::opened(GDBusProxy* proxy) {
    proxy_ = proxy;
    const auto changed =
        +[](GObject*, gpointer, gpointer data) { static_cast<BusObject*>(data)->callbacks_.changed(); };
    g_signal_connect(proxy, "notify::g-name-owner", G_CALLBACK(changed), this);
    const auto propertiesChanged = +[](GDBusProxy*, GVariant*, const char* const*, gpointer data) {
        static_cast<BusObject*>(data)->callbacks_.changed();
    };
    g_signal_connect(proxy, "g-properties-changed", G_CALLBACK(propertiesChanged), this);
    const auto signalled = +[](GDBusProxy*, const char*, const char* signal, GVariant*, gpointer data) {
        if (const auto& callback = static_cast<BusObject*>(data)->callbacks_.signalled)
            callback(signal);
    };
    g_signal_connect(proxy, "g-signal", G_CALLBACK(signalled), this);
    callbacks_.changed();
}

void BusObject::close() {
    // Answers on their way belong to the former connection.
    self_ = std::make_shared<BusObject*>(this);
    if (!proxy_)
        return;
    g_signal_handlers_disconnect_by_data(proxy_, this);
    g_object_unref(std::exchange(proxy_, nullptr));
}

bool BusObject::isThere() const {
    g_autofree char* owner = proxy_ ? g_dbus_proxy_get_name_owner(proxy_) : nullptr;
    return owner != nullptr;
}

bool BusObject::booleanProperty(const char* name, bool otherwise) const {
    g_autoptr(GVariant) value = isThere() ? g_dbus_proxy_get_cached_property(proxy_, name) : nullptr;
    return value && g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN) ? g_variant_get_boolean(value)
                                                                        : otherwise;
}

std::string BusObject::stringProperty(const char* name, const std::string& otherwise) const {
    g_autoptr(GVariant) value = isThere() ? g_dbus_proxy_get_cached_property(proxy_, name) : nullptr;
    return value && g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) ? g_variant_get_string(value, nullptr)
                                                                       : otherwise;
}

void BusObject::call(const char* method, GVariant* arguments,
                     std::function<void(const std::string&)> answered) {
    ask(method, arguments, [answered = std::move(answered)](GVariant* answer) {
        if (answered)
            answered(firstText(answer));
    });
}

void BusObject::readAgain(const char* property) {
    ask("org.freedesktop.DBus.Properties.Get", g_variant_new("(ss)", address_.interface.c_str(), property),
        [this, name = std::string(property)](GVariant* answer) {
            if (!answer || !g_variant_is_of_type(answer, G_VARIANT_TYPE("(v)")))
                return;
            g_autoptr(GVariant) value = nullptr;
            g_variant_get(answer, "(v)", &value);
            g_dbus_proxy_set_cached_property(proxy_, name.c_str(), value);
            callbacks_.changed();
        });
}

void BusObject::ask(const char* method, GVariant* arguments, std::function<void(GVariant*)> answered) {
    if (!proxy_) {
        if (arguments)
            g_variant_unref(g_variant_ref_sink(arguments));
        return;
    }
    const auto done = [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Reply> reply(static_cast<Reply*>(data));
        g_autoptr(GVariant) answer = g_dbus_proxy_call_finish(G_DBUS_PROXY(source), result, nullptr);
        if (!reply->asker.expired())
            reply->answered(answer);
    };
    g_dbus_proxy_call(proxy_, method, arguments, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, done,
                      new Reply{self_, std::move(answered)});
}

} // namespace session

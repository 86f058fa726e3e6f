// A player on the bus that says whatever a test makes it say, right or wrong, and keeps what it is told to
// do.
#pragma once

#include <gio/gio.h>

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

namespace support {

class FakePlayer {
public:
    static constexpr const char* application = "org.mpris.MediaPlayer2";
    static constexpr const char* player = "org.mpris.MediaPlayer2.Player";

    /// `name`: what follows "org.mpris.MediaPlayer2.".
    FakePlayer(const std::string& address, const std::string& name) {
        const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        connection_ =
            g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
        if (!connection_)
            throw std::runtime_error("no connection to " + address);
        g_dbus_connection_add_filter(connection_, filter, this, nullptr);
        name_ = std::string(application) + "." + name;
    }
    FakePlayer(const FakePlayer&) = delete;
    FakePlayer& operator=(const FakePlayer&) = delete;
    ~FakePlayer() {
        g_dbus_connection_close_sync(connection_, nullptr, nullptr);
        g_object_unref(connection_);
        for (auto& [interface, properties] : properties_)
            for (auto& [name, value] : properties)
                g_variant_unref(value);
    }

    /// What is told from now on, in GVariant's text form: set("PlaybackStatus", "'Playing'").
    void set(const std::string& property, const std::string& value, const char* interface = player) {
        GError* error = nullptr;
        GVariant* parsed = g_variant_parse(nullptr, value.c_str(), nullptr, nullptr, &error);
        if (!parsed)
            throw std::runtime_error(error->message);
        std::lock_guard lock(mutex_);
        auto& place = properties_[interface][property];
        if (place)
            g_variant_unref(place);
        place = parsed;
    }
    /// Sets a property and tells everybody.
    void change(const std::string& property, const std::string& value, const char* interface = player) {
        set(property, value, interface);
        GVariantBuilder changed;
        g_variant_builder_init(&changed, G_VARIANT_TYPE_VARDICT);
        g_variant_builder_add(&changed, "{sv}", property.c_str(), properties_[interface][property]);
        emit("org.freedesktop.DBus.Properties", "PropertiesChanged",
             g_variant_new("(sa{sv}as)", interface, &changed, nullptr));
    }
    void emit(const char* interface, const char* signal, GVariant* arguments) {
        g_dbus_connection_emit_signal(connection_, nullptr, "/org/mpris/MediaPlayer2", interface, signal,
                                      arguments, nullptr);
        g_dbus_connection_flush_sync(connection_, nullptr, nullptr);
    }
    /// Takes its name, and so appears.
    void appear() {
        g_variant_unref(g_dbus_connection_call_sync(connection_, "org.freedesktop.DBus",
                                                    "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                                    "RequestName", g_variant_new("(su)", name_.c_str(), 4u),
                                                    nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    }
    void vanish() {
        g_variant_unref(g_dbus_connection_call_sync(connection_, "org.freedesktop.DBus",
                                                    "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                                    "ReleaseName", g_variant_new("(s)", name_.c_str()),
                                                    nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    }
    /// Answers calls of that method with an error from now on.
    void refuse(const std::string& method) {
        std::lock_guard lock(mutex_);
        refused_ = method;
    }
    /// The methods that were called, with their arguments: "SetPosition('/track', 5000000)".
    std::vector<std::string> calls() const {
        std::lock_guard lock(mutex_);
        return calls_;
    }
    std::size_t timesPositionWasRead() const {
        std::lock_guard lock(mutex_);
        return positionReads_;
    }

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer data) {
        auto& self = *static_cast<FakePlayer*>(data);
        if (!incoming || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL)
            return message;
        const bool refuses = self.refuses(g_dbus_message_get_member(message));
        GDBusMessage* reply =
            refuses ? g_dbus_message_new_method_error_literal(
                          message, "org.freedesktop.DBus.Error.NotSupported", "This player does not.")
                    : g_dbus_message_new_method_reply(message);
        if (GVariant* answer =
                refuses ? nullptr
                        : self.answer(g_dbus_message_get_member(message), g_dbus_message_get_body(message)))
            g_dbus_message_set_body(reply, answer);
        g_dbus_connection_send_message(connection, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
        g_object_unref(reply);
        g_object_unref(message);
        return nullptr;
    }
    bool refuses(const std::string& method) const {
        std::lock_guard lock(mutex_);
        return method == refused_;
    }
    GVariant* answer(const std::string& method, GVariant* arguments) {
        std::lock_guard lock(mutex_);
        const char* interface = nullptr;
        if (method == "GetAll") {
            g_variant_get(arguments, "(&s)", &interface);
            positionReads_ += properties_[interface].contains("Position");
            GVariantBuilder all;
            g_variant_builder_init(&all, G_VARIANT_TYPE_VARDICT);
            for (const auto& [name, value] : properties_[interface])
                g_variant_builder_add(&all, "{sv}", name.c_str(), value);
            return g_variant_new("(a{sv})", &all);
        }
        if (method == "Get") {
            const char* name = nullptr;
            g_variant_get(arguments, "(&s&s)", &interface, &name);
            positionReads_ += std::string(name) == "Position";
            GVariant* value = properties_[interface][name];
            return value ? g_variant_new("(v)", value) : nullptr;
        }
        char* printed = arguments ? g_variant_print(arguments, FALSE) : g_strdup("()");
        calls_.push_back(method + printed);
        g_free(printed);
        return nullptr;
    }

    GDBusConnection* connection_ = nullptr;
    std::string name_;
    mutable std::mutex mutex_; // the bus calls on a thread of its own
    std::map<std::string, std::map<std::string, GVariant*>> properties_;
    std::vector<std::string> calls_;
    std::string refused_;
    std::size_t positionReads_ = 0;
};

} // namespace support

#include "tests/session/MockedServices.h"

namespace tests {

namespace {

constexpr const char* mock = "org.freedesktop.DBus.Mock";
constexpr const char* keyboard = "sm.puri.OSK0";
constexpr const char* keyboardPath = "/sm/puri/OSK0";
constexpr const char* sensorPath = "/net/hadess/SensorProxy";

} // namespace

void MockedServices::updateProperty(const char* service, const char* path, const char* interface,
                                    const char* property, GVariant* value) {
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&properties, "{sv}", property, value);
    take(bus().call(service, path, mock, "UpdateProperties",
                    g_variant_new("(sa{sv})", interface, &properties)));
}

void MockedServices::startLogin() {
    startMock({"--template", "logind"}, login);
    for (const char* session : {"c1", "auto"})
        take(bus().call(login, "/org/freedesktop/login1", mock, "AddSession",
                        g_variant_new("(ssusb)", session, "seat0", 1000u, "someone", TRUE)));
}

void MockedServices::setLockedHint(bool locked, const char* session) {
    take(bus().call(login, session, "org.freedesktop.login1.Session", "SetLockedHint",
                    g_variant_new("(b)", locked)));
}

void MockedServices::setIdleHint(bool idle) {
    updateProperty(login, loginSession, "org.freedesktop.login1.Session", "IdleHint",
                   g_variant_new_boolean(idle));
}

bool MockedServices::waitForLocked(bool locked) {
    return eventually([&] { return state()["locked"] == locked; });
}

void MockedServices::startKeyboard() {
    startMock({keyboard, keyboardPath, keyboard}, keyboard);
    take(bus().call(keyboard, keyboardPath, mock, "AddProperty",
                    g_variant_new("(ssv)", keyboard, "Visible", g_variant_new_boolean(FALSE))));
}

void MockedServices::setKeyboardVisible(bool visible) {
    updateProperty(keyboard, keyboardPath, keyboard, "Visible", g_variant_new_boolean(visible));
}

void MockedServices::startSensor(const std::string& orientation) {
    startMock({"--template", "iio-sensors-proxy", "--parameters",
               R"({"has_accelerometer": true, "accelerometer_orientation": ")" + orientation + R"("})"},
              sensor);
}

void MockedServices::setSensed(const std::string& orientation) {
    take(bus().call(sensor, sensorPath, mock, "SetInternalProperty",
                    g_variant_new("(ssv)", sensor, "AccelerometerOrientation",
                                  g_variant_new_string(orientation.c_str()))));
}

} // namespace tests

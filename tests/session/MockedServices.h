// A test of the session host among services of the session, which are mocked on the test's own bus.
#pragma once

#include "tests/session/SessionTest.h"

namespace tests {

class MockedServices : public SessionTest {
protected:
    static constexpr const char* login = "org.freedesktop.login1";
    static constexpr const char* loginSession = "/org/freedesktop/login1/session/c1";
    static constexpr const char* seenSession = "/org/freedesktop/login1/session/auto";
    static constexpr const char* sensor = "net.hadess.SensorProxy";

    /// With a session "c1", and "auto", the one that the user sees.
    void startLogin();
    void setLockedHint(bool locked, const char* session = loginSession);
    void setIdleHint(bool idle);
    bool waitForLocked(bool locked);

    void startKeyboard();
    void setKeyboardVisible(bool visible);

    /// Measures how the device is held; for those alone who have claimed it.
    void startSensor(const std::string& orientation);
    void setSensed(const std::string& orientation);

private:
    void updateProperty(const char* service, const char* path, const char* interface, const char* property,
                        GVariant* value);
};

} // namespace tests

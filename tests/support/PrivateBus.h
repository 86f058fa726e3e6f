// A session bus of a test's own. While it stands, the environment names it, so that programs which the test
// starts find it too.
#pragma once

#include "tests/support/BackgroundProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <glib.h>

#include <memory>
#include <string>

#include <unistd.h>

namespace support {

class PrivateBus {
public:
    PrivateBus() : address_("unix:path=" + (directory_.path() / "bus").string()) {
        start();
        g_setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), TRUE);
    }
    ~PrivateBus() {
        stop();
        g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

    const std::string& address() const { return address_; }
    /// Ends the bus, and with it everybody's connection.
    void stop() { daemon_.reset(); }
    /// Begins it anew at the same address; returns when it can be connected to.
    void start() {
        std::error_code error;
        std::filesystem::remove(directory_.path() / "bus", error);
        int output = -1;
        daemon_ = std::make_unique<BackgroundProcess>(
            std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address",
                                     "--address=" + address_},
            std::vector<std::string>{}, &output);
        for (char character = 0; read(output, &character, 1) == 1 && character != '\n';) {
        }
        close(output);
    }

private:
    tests::TemporaryDirectory directory_;
    std::string address_;
    std::unique_ptr<BackgroundProcess> daemon_;
};

} // namespace support

#include "tests/settings-app/AccessibleDesktop.h"

#include "tests/support/ChildProcess.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include <unistd.h>

namespace support {

namespace {

std::string readLine(int descriptor) {
    std::string line;
    for (char c = 0; ::read(descriptor, &c, 1) == 1 && c != '\n';)
        line += c;
    close(descriptor);
    return line;
}

} // namespace

bool waitUntil(const std::function<bool()>& holds, double seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    do {
        if (holds())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    } while (std::chrono::steady_clock::now() < end);
    return holds();
}

AccessibleDesktop& AccessibleDesktop::shared() {
    // Taken down at exit, before which the bus has to go: the services on it end with it.
    static AccessibleDesktop desktop;
    return desktop;
}

AccessibleDesktop::AccessibleDesktop() {
    if (display().empty())
        return;
    g_unsetenv("AT_SPI_BUS_ADDRESS");
    g_unsetenv("WAYLAND_DISPLAY");
    g_setenv("DISPLAY", display().c_str(), TRUE);
    int output = -1;
    bus_ = std::make_unique<BackgroundProcess>(
        std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address=1"},
        environment(), &output);
    if (!bus_->started())
        return;
    const std::string address = readLine(output);
    if (address.empty())
        return;
    g_setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), TRUE);
    started_ = atspi_init() <= 1;
}

std::vector<std::string> AccessibleDesktop::environment() const {
    const std::string home = directory_.path();
    return {"DISPLAY=" + display(),  "GDK_BACKEND=x11",          "GSK_RENDERER=cairo",
            "HOME=" + home,          "XDG_CONFIG_HOME=" + home,  "XDG_CACHE_HOME=" + home,
            "XDG_DATA_HOME=" + home, "GSETTINGS_BACKEND=memory", "GTK_A11Y=atspi",
            "LC_ALL=C.UTF-8"};
}

Accessible AccessibleDesktop::findProgram(const std::string& name) const {
    const Accessible desktop(atspi_get_desktop(0));
    desktop.keepNothing();
    for (const Accessible& program : desktop.children()) {
        program.keepNothing();
        if (program.name() == name && !program.children().empty())
            return program;
    }
    return {};
}

Accessible AccessibleDesktop::program(const std::string& name) const {
    Accessible found;
    waitUntil([&] { return static_cast<bool>(found = findProgram(name)); });
    return found;
}

bool AccessibleDesktop::isRunning(const std::string& name) const {
    return static_cast<bool>(findProgram(name));
}

void AccessibleDesktop::input(std::vector<std::string> words) const {
    words.insert(words.begin(), {"/usr/bin/env", "xdotool"});
    if (ChildProcess::run(words, {"DISPLAY=" + display()}).exitCode != 0)
        throw std::runtime_error("xdotool failed");
}

} // namespace support

// A message bus of the test's own, which is session and system bus in one.
#pragma once

#include "tests/support/BackgroundProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gio/gio.h>

#include <memory>
#include <string>

namespace tests {

class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    /// Starts it again at the same address, after its end.
    bool start();
    void stop();
    const std::string& address() const { return address_; }
    std::vector<std::string> environment() const;

    /// Calls a method; null when it fails, with the reason in lastError(). `arguments` are taken over.
    GVariant* call(const std::string& name, const std::string& path, const std::string& interface,
                   const std::string& method, GVariant* arguments = nullptr);
    const std::string& lastError() const { return lastError_; }
    bool has(const std::string& name);
    /// Sends a signal from this connection.
    void emit(const std::string& path, const std::string& interface, const std::string& signal);

private:
    TemporaryDirectory directory_;
    std::string address_;
    std::string lastError_;
    std::unique_ptr<support::BackgroundProcess> daemon_;
    GDBusConnection* connection_ = nullptr;
};

} // namespace tests

// The settings application, a program of its own on the same device.
//
// Main thread only. The program goes on when this object goes.
#pragma once

#include "hosts/phone/program/Options.h"

#include <glib.h>

namespace phone {

class SettingsProgram {
public:
    /// For the device and the extension that these options name.
    explicit SettingsProgram(const Options& options);
    ~SettingsProgram();
    SettingsProgram(const SettingsProgram&) = delete;
    SettingsProgram& operator=(const SettingsProgram&) = delete;

    /// Starts the program, or brings the window of the one that runs to the front. A program that cannot be
    /// started is reported on standard error.
    void show();

private:
    void start();
    void ended();

    std::vector<std::string> command_;
    GPid process_ = 0; // 0 while none runs
    guint watch_ = 0;
};

} // namespace phone

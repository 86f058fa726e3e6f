// vela-settings: the settings application.
#include "hosts/settings/program/Program.h"
#include "hosts/settings/window/SettingsWindowRunner.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const int exitCode = settings::runProgram({argv + 1, argv + argc}, settings::runInWindow);
    // Pages and window are not torn down, so nothing may be destroyed beneath them either.
    std::fflush(nullptr);
    std::quick_exit(exitCode);
}

// vela-phone: the simulated phone.
#include "hosts/phone/program/Program.h"
#include "hosts/phone/window/PhoneWindowRunner.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const int exitCode = phone::runProgram({argv + 1, argv + argc}, phone::runInWindow);
    // A phone that has been started is not torn down, so nothing may be destroyed beneath it either.
    std::fflush(nullptr);
    std::quick_exit(exitCode);
}

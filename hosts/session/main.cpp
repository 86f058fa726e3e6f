// vela-session: the panels over a real session's applications.
#include "hosts/session/program/Program.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const int exitCode = session::runProgram({argv + 1, argv + argc});
    // A host that has been started is not torn down, so nothing may be destroyed beneath it either.
    std::fflush(nullptr);
    std::quick_exit(exitCode);
}

// The library's entry point: runs once, when a process loads the library.
#include "vela/startup/Startup.h"

namespace {

[[gnu::constructor]] void loaded() {
    vela::start();
}

} // namespace

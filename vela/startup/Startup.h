// What happens when a process loads the library.
#pragma once

namespace vela {

/// Makes the data directories, seeds the preferences and, in a home-screen process of system version 9.0 or
/// later, installs the hooks. Runs once, on the thread that loads the library.
void start();

} // namespace vela

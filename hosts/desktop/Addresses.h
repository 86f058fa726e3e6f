// Opening addresses in the programs that a desktop has for them, without a shell in between.
#pragma once

#include <string>

typedef struct _GDBusConnection GDBusConnection;

namespace desktop {

/// Whether some program opens addresses of this kind ("https:").
bool canOpenAddress(const std::string& address);

/// Opens an address: through the desktop's portal when it runs on the bus, so that the program is the
/// desktop's child, else as a child of this process. The bus may be null. Main thread, served by its loop.
void openAddress(const std::string& address, GDBusConnection* bus);

} // namespace desktop

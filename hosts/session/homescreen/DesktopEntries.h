// The applications that are installed on this machine, as their desktop entries describe them.
#pragma once

#include <optional>
#include <string>

namespace session {

/// The name under an application's icon. `identifier` is what its windows call themselves, or the name of its
/// desktop entry; nothing for one that has none.
std::optional<std::string> applicationName(const std::string& identifier);

} // namespace session

// Where messages to the social network go that the device is configured for.
#pragma once

#include <optional>
#include <string>

namespace device {

/// The address of the network's page on which a message can be changed and sent, with this one filled in;
/// nothing when the device's configuration names no network. There must be a device root.
std::optional<std::string> messagePage(const std::string& message);

} // namespace device

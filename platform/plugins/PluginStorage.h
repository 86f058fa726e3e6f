// A plug-in's own directory on the device, named after its identifier.
#pragma once

#include "sdk/VelaPlugin.h"

#include <string>

namespace plugins {

class PluginStorage final : public vela::plugin::Storage {
public:
    static constexpr std::size_t largestFile = 16 * 1024 * 1024; // bytes

    explicit PluginStorage(const std::string& identifier);

    /// The device path of the directory, which is made by the first write. Identifiers are anybody's: what
    /// could lead elsewhere is written in percent signs and hexadecimal digits.
    static std::string directoryFor(const std::string& identifier);

    std::optional<std::string> read(std::string_view name) const override;
    bool write(std::string_view name, std::string_view contents) override;
    bool remove(std::string_view name) override;
    std::vector<std::string> names() const override;

private:
    std::optional<std::string> pathOf(std::string_view name) const;
    std::string directory_;
};

} // namespace plugins

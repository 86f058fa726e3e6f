#include "hosts/settings/program/Address.h"

#include "platform/foundation/FileManager.h"

#include <gio/gio.h>

namespace settings {

std::string realAddress(const std::string& address) {
    if (!address.starts_with("file:"))
        return address;
    gchar* path = g_filename_from_uri(address.c_str(), nullptr, nullptr);
    if (!path)
        return {};
    const auto real = foundation::FileManager::shared().realPath(path);
    g_free(path);
    if (!real)
        return {};
    gchar* uri = g_filename_to_uri(real->c_str(), nullptr, nullptr);
    const std::string result = uri ? uri : "";
    g_free(uri);
    return result;
}

} // namespace settings

#include "hosts/session/homescreen/DesktopEntries.h"

#include <gio/gdesktopappinfo.h>

namespace session {

namespace {

/// Desktop entries lie below known directories; nothing that names itself gets out of them.
bool isPlainName(const std::string& identifier) {
    return !identifier.empty() && identifier.size() < 256 && identifier.find('/') == std::string::npos &&
           identifier.front() != '.';
}

} // namespace

std::optional<std::string> applicationName(const std::string& identifier) {
    if (!isPlainName(identifier))
        return std::nullopt;
    g_autoptr(GDesktopAppInfo) info = g_desktop_app_info_new((identifier + ".desktop").c_str());
    if (!info) {
        // Programs call their windows by names with other capitals than their entries'.
        g_autofree char* lower = g_ascii_strdown(identifier.c_str(), -1);
        info = g_desktop_app_info_new((std::string(lower) + ".desktop").c_str());
    }
    if (!info)
        return std::nullopt;
    const char* name = g_app_info_get_display_name(G_APP_INFO(info));
    return name ? std::optional<std::string>(name) : std::nullopt;
}

} // namespace session

#include "hosts/desktop/DesktopEntry.h"

#include "hosts/desktop/SmallFile.h"

#include <memory>

#include <gio/gdesktopappinfo.h>

namespace desktop {

namespace {

constexpr std::size_t largestEntry = 1024 * 1024; // bytes; all languages of a large one take a tenth

std::string textOrNothing(const char* text) {
    return text ? text : "";
}

std::string iconOf(GAppInfo* info) {
    GIcon* icon = g_app_info_get_icon(info);
    if (G_IS_THEMED_ICON(icon))
        return textOrNothing(*g_themed_icon_get_names(G_THEMED_ICON(icon)));
    if (!G_IS_FILE_ICON(icon))
        return {};
    g_autofree char* path = g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon)));
    return textOrNothing(path);
}

} // namespace

std::optional<DesktopEntry> readDesktopEntry(const std::string& identifier,
                                             const std::filesystem::path& file) {
    const auto text = readSmallFile(file, largestEntry);
    if (!text)
        return std::nullopt;
    g_autoptr(GKeyFile) keys = g_key_file_new();
    if (!g_key_file_load_from_data(keys, text->data(), text->size(), G_KEY_FILE_NONE, nullptr))
        return std::nullopt;
    g_autoptr(GDesktopAppInfo) entry = g_desktop_app_info_new_from_keyfile(keys);
    if (!entry || g_desktop_app_info_get_is_hidden(entry))
        return std::nullopt;
    GAppInfo* info = G_APP_INFO(entry);
    return DesktopEntry{identifier, textOrNothing(g_app_info_get_display_name(info)), iconOf(info),
                        textOrNothing(g_desktop_app_info_get_startup_wm_class(entry)),
                        g_app_info_should_show(info) != FALSE};
}

} // namespace desktop

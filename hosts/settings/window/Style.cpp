#include "hosts/settings/window/Style.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>

namespace settings {

namespace {

constexpr const char* styleSheet = R"(
.row-content { min-height: 34px; padding: 8px 12px; }
.group-footer { font-size: 0.85em; }
.page-rows row { padding: 0; }
button.cover, button.cover:hover, button.cover:active { opacity: 0; }
button.cover:focus-visible { opacity: 1; background: none; color: transparent; }
.modal-page { background-color: @window_bg_color; }
)";

void addToDisplay(const char* text) {
    GtkCssProvider* provider = gtk_css_provider_new();
    gtk_css_provider_load_from_data(provider, text, -1);
    gtk_style_context_add_provider_for_display(gdk_display_get_default(), GTK_STYLE_PROVIDER(provider),
                                               GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(provider);
}

int byteOf(double component) {
    return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

} // namespace

void addStyle() {
    addToDisplay(styleSheet);
}

std::string tintStyleClass(const toolkit::Color& color) {
    char name[32], rule[128];
    std::snprintf(name, sizeof name, "tint-%02x%02x%02x", byteOf(color.red), byteOf(color.green),
                  byteOf(color.blue));
    static std::set<std::string> known; // the colours of the process's switches: a handful
    if (known.insert(name).second) {
        std::snprintf(rule, sizeof rule, "switch.%s:checked { background-color: #%s; }", name, name + 5);
        addToDisplay(rule);
    }
    return name;
}

} // namespace settings

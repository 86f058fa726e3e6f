#include "hosts/settings/window/Text.h"

#include <glib.h>

namespace settings {

std::string displayed(const std::string& text) {
    gchar* valid = g_utf8_make_valid(text.c_str(), -1);
    std::string result = valid;
    g_free(valid);
    return result;
}

} // namespace settings

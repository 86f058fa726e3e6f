#include "hosts/media/library/UserMusicDirectory.h"

#include <glib.h>

namespace playback {

std::filesystem::path userMusicDirectory() {
    if (const char* directory = g_get_user_special_dir(G_USER_DIRECTORY_MUSIC))
        return directory;
    return std::filesystem::path(g_get_home_dir()) / "Music";
}

} // namespace playback

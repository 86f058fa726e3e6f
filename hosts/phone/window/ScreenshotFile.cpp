#include "hosts/phone/window/ScreenshotFile.h"

#include "platform/toolkit/rendering/ImageFile.h"

#include <gtk/gtk.h>

#include <fstream>

namespace phone {

namespace {

std::filesystem::path picturesDirectory() {
    const char* pictures = g_get_user_special_dir(G_USER_DIRECTORY_PICTURES);
    return pictures ? pictures : g_get_home_dir();
}

std::string timeOfDay() {
    GDateTime* now = g_date_time_new_now_local();
    gchar* text = g_date_time_format(now, "%Y-%m-%d %H-%M-%S");
    std::string result = text;
    g_free(text);
    g_date_time_unref(now);
    return result;
}

} // namespace

std::optional<std::filesystem::path> writeScreenshotFile(const toolkit::Image& picture) {
    const auto path = picturesDirectory() / ("Phone " + timeOfDay() + ".png");
    const auto png = toolkit::encodePng(picture);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::ofstream stream(path, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    stream.close();
    if (png.empty() || !stream)
        return std::nullopt;
    return path;
}

} // namespace phone

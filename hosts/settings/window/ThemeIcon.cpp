#include "hosts/settings/window/ThemeIcon.h"

#include "hosts/desktop/SmallFile.h"
#include "hosts/gtk/Texture.h"
#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>
#include <cmath>

namespace settings {

using toolkit::Image;

namespace {

constexpr std::size_t largestIcon = 4 * 1024 * 1024; // bytes

using Paintable = std::unique_ptr<GtkIconPaintable, gtk::ObjectUnref>;
using Renderer = std::unique_ptr<GskRenderer, gtk::ObjectUnref>;
using File = std::unique_ptr<GFile, gtk::ObjectUnref>;

Paintable find(const std::string& icon, int points, int scale) {
    if (g_path_is_absolute(icon.c_str())) {
        const File file(g_file_new_for_path(icon.c_str()));
        return Paintable(gtk_icon_paintable_new_for_file(file.get(), points, scale));
    }
    GtkIconTheme* theme = gtk_icon_theme_get_for_display(gdk_display_get_default());
    if (!gtk_icon_theme_has_icon(theme, icon.c_str()))
        return nullptr;
    return Paintable(gtk_icon_theme_lookup_icon(theme, icon.c_str(), nullptr, points, scale,
                                                GTK_TEXT_DIR_NONE, GtkIconLookupFlags{}));
}

/// Where the icon lies; empty for what comes with GTK itself.
std::string pathOf(GtkIconPaintable* icon) {
    const File file(gtk_icon_paintable_get_file(icon));
    g_autofree char* path = file ? g_file_get_path(file.get()) : nullptr;
    return path ? path : "";
}

/// The whole picture in the middle of a square.
std::shared_ptr<const Image> fitted(const Image& picture, double points, double scale) {
    const double width = picture.pixelWidth(), height = picture.pixelHeight();
    const double factor = points / std::max(width, height);
    const toolkit::Rect place{(points - factor * width) / 2, (points - factor * height) / 2, factor * width,
                              factor * height};
    const auto reduced =
        picture.reducedTo(std::max(1, static_cast<int>(std::lround(std::min(width, place.width * scale)))),
                          std::max(1, static_cast<int>(std::lround(std::min(height, place.height * scale)))));
    return Image::draw({points, points}, scale,
                       [&](toolkit::Canvas& canvas) { canvas.drawImage(*reduced, place, 1); });
}

/// As GTK paints it. The toolkit reads no drawings.
std::shared_ptr<const Image> painted(GtkIconPaintable* icon, double points, double scale) {
    const int side = static_cast<int>(std::lround(points * scale));
    GtkSnapshot* snapshot = gtk_snapshot_new();
    gdk_paintable_snapshot(GDK_PAINTABLE(icon), snapshot, side, side);
    GskRenderNode* node = gtk_snapshot_free_to_node(snapshot);
    if (!node)
        return nullptr;
    const Renderer renderer(gsk_cairo_renderer_new());
    gsk_renderer_realize(renderer.get(), nullptr, nullptr);
    const auto length = static_cast<float>(side);
    const graphene_rect_t area = GRAPHENE_RECT_INIT(0, 0, length, length);
    const gtk::Texture texture(gsk_renderer_render_texture(renderer.get(), node, &area));
    gsk_render_node_unref(node);
    gsk_renderer_unrealize(renderer.get());
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 4);
    gdk_texture_download(texture.get(), pixels.data(), static_cast<gsize>(side) * 4);
    return std::make_shared<Image>(side, side, side * 4, std::move(pixels), scale);
}

} // namespace

std::shared_ptr<const Image> themeIcon(const std::string& icon, double points) {
    const double scale = toolkit::UIScreen::mainScreen().scale();
    const Paintable found =
        find(icon, static_cast<int>(std::ceil(points)), static_cast<int>(std::ceil(scale)));
    const std::string path = found ? pathOf(found.get()) : "";
    const auto content = path.empty() ? std::nullopt : desktop::readSmallFile(path, largestIcon);
    if (!content)
        return nullptr;
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(content->data()), content->size());
    if (const auto picture = toolkit::decodeImage(bytes, 1))
        return fitted(*picture, points, scale);
    return path.ends_with(".svg") ? painted(found.get(), points, scale) : nullptr;
}

} // namespace settings
